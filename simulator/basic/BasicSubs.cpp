#include "simulator/basic/BasicSubs.h"

#include <algorithm>
#include <utility>

#include "simulator/Board.h"
#include "simulator/basic/BasicFlow.h"
#include "simulator/basic/BasicVariables.h"

namespace simulator {

namespace {

void ForgetVariable(Board& board, const std::string& name) {
    const auto found = board.basic.variables.find(name);
    if (found == board.basic.variables.end()) return;
    board.basic.elements -= found->second.elements.size();
    board.basic.variables.erase(found);
}

// From now on `name` is the innermost SUB's own.
void HideVariable(Board& board, const std::string& name) {
    BasicCall& call = board.basic.calls.back();
    const auto found = board.basic.variables.find(name);
    if (found != board.basic.variables.end() && !call.hidden.count(name)) {
        call.hidden.emplace(name, std::move(found->second));
        board.basic.variables.erase(found);
    }
    call.own.push_back(name);
}

// The innermost call ends: its own variables go, what they hid comes back.
void PutBack(Board& board) {
    BasicCall& call = board.basic.calls.back();
    for (const std::string& name : call.own) ForgetVariable(board, name);
    for (auto& [name, variable] : call.hidden) board.basic.variables[name] = std::move(variable);
    board.basic.calls.pop_back();
}

// The brackets around the arguments may be left out.
std::vector<BasicValue> TakeArguments(Board& board) {
    std::vector<BasicValue> arguments;
    const bool bracket = TakeChar(board, '(');
    if (!AtStatementEnd(board) && PeekChar(board) != ')') {
        do arguments.push_back(TakeValue(board));
        while (!board.basic.failed && TakeChar(board, ','));
    }
    if (bracket) Expect(board, ')');
    return arguments;
}

// The cursor stands behind the SUB's name in its head; it ends behind the parameters.
void BindParameters(Board& board, const std::vector<BasicValue>& arguments) {
    const bool bracket = TakeChar(board, '(');
    size_t index = 0;
    while (!board.basic.failed && !AtStatementEnd(board) && PeekChar(board) != ')') {
        const std::string name = TakeWord(board);
        if (name.empty()) {
            Fail(board, "Syntax");
            return;
        }
        HideVariable(board, name);
        const bool explicitNames = std::exchange(board.basic.explicitNames, false);
        BasicValue* place = PlaceOf(board, name);
        board.basic.explicitNames = explicitNames;
        if (index < arguments.size()) AssignValue(board, place, name, arguments[index]);
        ++index;
        TakeChar(board, ',');
    }
    if (bracket) Expect(board, ')');
    if (arguments.size() > index) Fail(board, "Argument count");
}

}  // namespace

bool IsSub(const Board& board, const std::string& name) {
    return board.basic.labels.count("SUB " + name) != 0;
}

// Arguments are read at the call, with the caller's variables, before anything is hidden.
void CallSub(Board& board, const std::string& name) {
    const std::vector<BasicValue> arguments = TakeArguments(board);
    if (board.basic.failed) return;
    if (board.basic.calls.size() >= kMaximumNesting) {
        Fail(board, "Too many nested SUB");
        return;
    }
    board.basic.calls.push_back({board.basic.place, board.basic.loops.size(), true, {}, {}});
    board.basic.place = BasicPlace{false, board.basic.labels["SUB " + name], 0};
    TakeKeyword(board, "SUB");
    TakeWord(board);
    BindParameters(board, arguments);
}

// A GOSUB that was left open inside goes as well.
void LeaveSub(Board& board) {
    auto& calls = board.basic.calls;
    while (!calls.empty() && !calls.back().isSub) PutBack(board);
    if (calls.empty()) {
        Fail(board, "No SUB to leave");
        return;
    }
    board.basic.place = calls.back().back;
    auto& loops = board.basic.loops;
    loops.erase(loops.begin() + static_cast<long>(std::min(calls.back().loops, loops.size())),
                loops.end());
    PutBack(board);
}

// A program that runs into a SUB passes it over.
void SkipSub(Board& board) {
    while (GoToNextLine(board)) {
        if (TakeKeyword(board, "END") && TakeKeyword(board, "SUB")) return;
    }
}

// Like DIM, but the caller's variables of these names are put away until the SUB ends.
void RunLocal(Board& board) {
    if (board.basic.calls.empty() || !board.basic.calls.back().isSub) {
        Fail(board, "LOCAL is only valid in a SUB");
        return;
    }
    const bool text = TakeKeyword(board, "STRING");
    if (!text && !TakeKeyword(board, "INTEGER")) TakeKeyword(board, "FLOAT");
    do {
        const BasicPlace before = board.basic.place;
        const std::string name = TakeWord(board);
        board.basic.place = before;
        if (board.basic.calls.back().own.size() >= kMaximumVariables) {
            Fail(board, "Not enough memory");
            return;
        }
        HideVariable(board, name);
        DimensionOne(board, text);
    } while (!board.basic.failed && TakeChar(board, ','));
}

void UnwindSubs(Board& board) {
    while (!board.basic.calls.empty()) PutBack(board);
}

}  // namespace simulator
