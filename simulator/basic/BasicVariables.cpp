#include "simulator/basic/BasicVariables.h"

#include <cmath>

#include "simulator/Board.h"

namespace simulator {

// One store for all variables, by name with type mark. No place in it outlives the statement
// that asked for it.

namespace {

bool IsTextName(const std::string& name) {
    return !name.empty() && name.back() == '$';
}

BasicValue EmptyValue(const std::string& name) {
    return IsTextName(name) ? TextValue("") : NumberValue(0);
}

bool NotDeclared(Board& board, const std::string& name) {
    return Fail(board, name + " is not declared");
}

// The element that the bounds and the indices at the cursor name; nullptr with an error.
BasicValue* TakeElement(Board& board, BasicVariable& array) {
    TakeChar(board, '(');
    size_t index = 0;
    for (size_t i = 0; i < array.bounds.size(); ++i) {
        if (i > 0 && !Expect(board, ',')) return nullptr;
        const double at = TakeNumber(board);
        if (board.basic.failed) return nullptr;
        if (!(at >= 0 && at <= array.bounds[i])) {
            Fail(board, "Index out of bounds");
            return nullptr;
        }
        index = index * static_cast<size_t>(array.bounds[i] + 1) + static_cast<size_t>(at);
    }
    return Expect(board, ')') ? &array.elements[index] : nullptr;
}

BasicVariable* FindVariable(Board& board, const std::string& name) {
    const auto found = board.basic.variables.find(name);
    return found == board.basic.variables.end() ? nullptr : &found->second;
}

// Variables come into being when they are first used, up to a bound.
BasicVariable* MakeVariable(Board& board, const std::string& name) {
    if (name.size() > kMaximumName) return Fail(board, "Variable name too long"), nullptr;
    if (board.basic.variables.size() >= kMaximumVariables) {
        return Fail(board, "Not enough memory"), nullptr;
    }
    BasicVariable& variable = board.basic.variables[name];
    variable.value = EmptyValue(name);
    return &variable;
}

// Bounds are the highest indices, counted from 0. All arrays share one store of elements.
bool MakeArray(Board& board, BasicVariable* array, const std::string& name) {
    size_t count = 1;
    do {
        array->bounds.push_back(TakeInteger(board, 1, static_cast<int>(kMaximumElements)));
        if (board.basic.failed) return false;
        count *= static_cast<size_t>(array->bounds.back() + 1);
        if (board.basic.elements + count > kMaximumElements)
            return Fail(board, "Not enough memory");
    } while (TakeChar(board, ','));
    board.basic.elements += count;
    array->elements.assign(count, EmptyValue(name));
    return Expect(board, ')');
}

}  // namespace

// A name that was never assigned reads as 0 or an empty string, except under OPTION EXPLICIT;
// a name with an index must be an array, for no function has it.
BasicValue ReadVariable(Board& board) {
    const std::string name = TakeWord(board);
    BasicVariable* variable = FindVariable(board, name);
    const bool indexed = PeekChar(board) == '(';
    if (!variable) {
        if (indexed || board.basic.explicitNames) NotDeclared(board, name);
        return EmptyValue(name);
    }
    if (variable->bounds.empty()) {
        if (indexed) NotDeclared(board, name);
        return variable->value;
    }
    if (!indexed) return Fail(board, "Array dimensions"), EmptyValue(name);
    const BasicValue* element = TakeElement(board, *variable);
    return element ? *element : EmptyValue(name);
}

BasicValue* PlaceOf(Board& board, const std::string& name) {
    BasicVariable* variable = FindVariable(board, name);
    if (!variable && board.basic.explicitNames) return NotDeclared(board, name), nullptr;
    if (!variable) variable = MakeVariable(board, name);
    if (!variable) return nullptr;
    if (!variable->bounds.empty()) return Fail(board, "Array dimensions"), nullptr;
    return &variable->value;
}

BasicValue* TakePlace(Board& board) {
    const std::string name = TakeWord(board);
    if (name.empty()) return Fail(board, "Syntax"), nullptr;
    if (PeekChar(board) != '(') return PlaceOf(board, name);
    BasicVariable* variable = FindVariable(board, name);
    if (!variable || variable->bounds.empty()) return NotDeclared(board, name), nullptr;
    return TakeElement(board, *variable);
}

// Types don't turn into each other. A name with "%" keeps whole numbers only.
void AssignValue(Board& board, BasicValue* place, const std::string& name,
                 const BasicValue& value) {
    if (!place || board.basic.failed) return;
    if (place->isText != value.isText) {
        Fail(board, place->isText ? "Expected a string" : "Expected a number");
        return;
    }
    *place = value;
    if (!name.empty() && name.back() == '%') place->number = std::round(value.number);
}

void DimensionOne(Board& board, bool text) {
    std::string name = TakeWord(board);
    if (name.empty()) {
        Fail(board, "Syntax");
        return;
    }
    // DIM STRING A and DIM A$ name the same kind; the mark is not added to the name.
    if (FindVariable(board, name)) {
        Fail(board, name + " already declared");
        return;
    }
    BasicVariable* variable = MakeVariable(board, name);
    if (!variable) return;
    if (text) variable->value = TextValue("");
    if (TakeChar(board, '(')) {
        if (MakeArray(board, variable, text ? name + "$" : name) && TakeKeyword(board, "LENGTH")) {
            TakeInteger(board, 1, static_cast<int>(kMaximumString));
        }
        return;
    }
    if (TakeKeyword(board, "LENGTH")) TakeInteger(board, 1, static_cast<int>(kMaximumString));
    if (!TakeChar(board, '=')) return;
    const BasicValue value = TakeValue(board);
    // The expression may not have touched the store: functions change no variables.
    AssignValue(board, &variable->value, name, value);
}

}  // namespace simulator
