#include "simulator/basic/BasicVariables.h"

#include <cmath>

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"

// One store for all variables, by name with type mark. No place in it outlives the statement
// that asked for it.

namespace simulator {
namespace {

BasicValue EmptyValue(const std::string& name) {
    return {name.back() == '$', 0, {}, name.back() == '%'};
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
BasicVariable* MakeVariable(Board& board, const std::string& name) {
    if (name.size() > kMaximumName) return Fail(board, "Variable name too long"), nullptr;
    if (board.basic.variables.size() >= kMaximumVariables) {
        return Fail(board, "Not enough memory"), nullptr;
    }
    BasicVariable& variable = board.basic.variables[name];
    variable.value = EmptyValue(name);
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
    const BasicValue empty = EmptyValue(name);
    if (PeekChar(board) != '(' && !FindVariable(board, name)) return empty;
    board.basic.place = before;
    const BasicValue* place = TakePlace(board);
    return place ? *place : empty;
}

BasicValue* PlaceOf(Board& board, const std::string& name) {
    BasicVariable* variable = FindVariable(board, name);
    if (!variable) variable = MakeVariable(board, name);
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

// Types don't turn into each other.
void AssignValue(Board& board, BasicValue* place, const BasicValue& value) {
    if (!place || board.basic.failed) return;
    if (place->isText != value.isText)
        return Refuse(board, place->isText ? "Expected a string" : "Expected a number");
    place->text = value.text;
    place->number = place->isWhole ? std::round(value.number) : value.number;
}

void DimensionOne(Board& board) {
    const std::string name = TakeWord(board);
    if (RefuseAbsent(board, name)) return;
    if (name.empty()) return Refuse(board, "Syntax");
    if (FindVariable(board, name)) return Refuse(board, name + " already declared");
    BasicVariable* variable = MakeVariable(board, name);
    if (variable && TakeChar(board, '(')) MakeArray(board, variable);
}

}  // namespace simulator
