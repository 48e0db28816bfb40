#include "simulator/basic/BasicVariables.h"

#include <cmath>

#include "simulator/Board.h"

// One store for all variables, by name with type mark. No place in it outlives the statement
// that asked for it.

namespace simulator {
namespace {

BasicValue EmptyValue(bool isText) {
    return isText ? TextValue("") : NumberValue(0);
}

bool IsTextName(const std::string& name) {
    return !name.empty() && name.back() == '$';
}

BasicVariable* FindVariable(Board& board, const std::string& name) {
    const auto found = board.basic.variables.find(name);
    return found == board.basic.variables.end() ? nullptr : &found->second;
}

// Behind an index or a bound.
bool CloseIndex(Board& board) {
    if (PeekChar(board) == ',') return Fail(board, "Only arrays of one dimension are simulated");
    return Expect(board, ')');
}

// The element that the index at the cursor names; nullptr with an error.
BasicValue* TakeElement(Board& board, BasicVariable& array) {
    TakeChar(board, '(');
    const double index = TakeNumber(board);
    if (board.basic.failed || !CloseIndex(board)) return nullptr;
    if (index >= 0 && index < static_cast<double>(array.elements.size())) {
        return &array.elements[static_cast<size_t>(index)];
    }
    return Fail(board, "Index out of bounds"), nullptr;
}

// Variables come into being when they are first used, up to a bound.
BasicVariable* MakeVariable(Board& board, const std::string& name, bool isText) {
    if (name.size() > kMaximumName) return Fail(board, "Variable name too long"), nullptr;
    if (board.basic.variables.size() >= kMaximumVariables) {
        return Fail(board, "Not enough memory"), nullptr;
    }
    BasicVariable& variable = board.basic.variables[name];
    variable.value = EmptyValue(isText);
    return &variable;
}

// The bound is the highest index, counted from 0. All arrays share one store of elements.
void MakeArray(Board& board, BasicVariable* array) {
    const int bound = TakeInteger(board, 1, static_cast<int>(kMaximumElements));
    const size_t count = static_cast<size_t>(bound) + 1;
    if (board.basic.failed || !CloseIndex(board)) return;
    if (board.basic.elements + count > kMaximumElements) return Refuse(board, "Not enough memory");
    board.basic.elements += count;
    array->elements.assign(count, array->value);
}

}  // namespace

// A name that was never assigned reads as 0 or an empty string, and is not made by that.
BasicValue ReadVariable(Board& board) {
    const BasicPlace before = board.basic.place;
    const std::string name = TakeWord(board);
    const BasicValue empty = EmptyValue(IsTextName(name));
    if (PeekChar(board) != '(' && !FindVariable(board, name)) return empty;
    board.basic.place = before;
    const BasicValue* place = TakePlace(board);
    return place ? *place : empty;
}

BasicValue* PlaceOf(Board& board, const std::string& name) {
    BasicVariable* variable = FindVariable(board, name);
    if (!variable) variable = MakeVariable(board, name, IsTextName(name));
    if (!variable) return nullptr;
    if (!variable->elements.empty()) return Fail(board, "Array dimensions"), nullptr;
    return &variable->value;
}

// A name with an index must be an array, for no function has it.
BasicValue* TakePlace(Board& board) {
    const std::string name = TakeWord(board);
    if (name.empty()) return Fail(board, "Syntax"), nullptr;
    if (PeekChar(board) != '(') return PlaceOf(board, name);
    BasicVariable* variable = FindVariable(board, name);
    if (variable && !variable->elements.empty()) return TakeElement(board, *variable);
    return Fail(board, name + " is not declared"), nullptr;
}

// Types don't turn into each other. A name with "%" keeps whole numbers only.
void AssignValue(Board& board, BasicValue* place, const std::string& name,
                 const BasicValue& value) {
    if (!place || board.basic.failed) return;
    if (place->isText != value.isText)
        return Refuse(board, place->isText ? "Expected a string" : "Expected a number");
    *place = value;
    if (name.back() == '%') place->number = std::round(value.number);
}

// DIM STRING A and DIM A$ name the same kind; the mark is not added to the name.
void DimensionOne(Board& board, bool text) {
    const std::string name = TakeWord(board);
    if (name.empty() || FindVariable(board, name))
        return Refuse(board, name.empty() ? "Syntax" : name + " already declared");
    BasicVariable* variable = MakeVariable(board, name, text || IsTextName(name));
    if (!variable) return;
    if (TakeChar(board, '(')) return MakeArray(board, variable);
    if (TakeChar(board, '=')) AssignValue(board, &variable->value, name, TakeValue(board));
}

}  // namespace simulator
