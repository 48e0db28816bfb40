#include "simulator/basic/BasicMachine.h"

#include <algorithm>
#include <utility>

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"

// A millisecond of board time runs a fixed number of statements. Commands that take time hand
// the console to an activity of their own and come back by ResumeBasic; the cursor stands behind
// them all the while.

namespace simulator {
namespace {

void RunSlice(Board& board);
const BoardActivity kRunning = {nullptr, RunSlice, ReturnToPromptLoudly};

// The cursor to the start of the next statement; false when there is none.
bool FindStatement(Board& board) {
    BasicPlace& place = board.basic.place;
    while (true) {
        if (place.at == 0 && !place.direct) {
            const std::string_view line = CurrentLine(board), label = LabelOf(board, line);
            if (!label.empty()) place.at = line.find(label) + label.size();
        }
        while (TakeChar(board, ':')) {
        }
        const char c = PeekChar(board);
        if (c != '\0' && c != '\'') return true;
        if (!GoToNextLine(board)) return false;
    }
}

// "name =" or "name(": an array's element may be assigned to.
bool IsAssignment(Board& board) {
    const BasicPlace before = board.basic.place;
    const bool named = !TakeWord(board).empty();
    const char c = PeekChar(board);
    board.basic.place = before;
    return named && (c == '=' || c == '(');
}

// A command or an assignment. What is left behind a command that expects no more is a syntax
// error.
void RunNamed(Board& board) {
    const BasicPlace before = board.basic.place;
    const std::string word = TakeChar(board, '?') ? "PRINT" : TakeWord(board);
    const BasicCommand* command = FindCommand(board.facts, word);
    if (!command) {
        board.basic.place = before;
        if (RefuseAbsent(board, word)) return;
        if (!IsAssignment(board)) return Refuse(board, "Unknown command");
        command = FindCommand(board.facts, "LET");
    }
    command->run(board);
    if (command->openEnd || board.basic.failed || !BasicIsRunning(board)) return;
    if (!AtStatementEnd(board) && !RefuseAbsent(board, TakeWord(board))) Fail(board, "Syntax");
}

// One statement; false when the slice is over for another reason than its budget.
bool RunStatement(Board& board) {
    BasicMachine& basic = board.basic;
    if (!FindStatement(board)) {
        ReturnToPrompt(board);
        return false;
    }
    basic.statement = basic.place;
    basic.depth = 0;
    ++basic.cost;
    RunNamed(board);
    if (!basic.failed) return BasicIsRunning(board);
    const std::string message = basic.error;
    basic.failed = false;
    FailWith(board, message);
    return false;
}

// The statements of one millisecond. With the host's buffers full the program stands still, as
// a board does whose output blocks.
void RunSlice(Board& board) {
    if (OutputIsFull(board)) return WakeIn(board, kFullOutputWaitMs);
    WakeIn(board, 1);
    // The budget is that of the passing time: a program that runs itself anew, or commands
    // that come back at once, begin no other one, and long work leaves a debt.
    BasicMachine& basic = board.basic;
    const int64_t passed = board.now - std::exchange(basic.sliceAt, board.now);
    basic.cost = std::max<int64_t>(0, basic.cost - passed * board.facts.statementsPerMs);
    while (basic.cost < board.facts.statementsPerMs) {
        if (!RunStatement(board)) return;
    }
}

void StartRunning(Board& board, const BasicPlace& place) {
    board.basic.loops.clear();
    board.basic.failed = false;
    board.basic.place = place;
    board.basic.statement = place;
    ResumeBasic(board);
}

}  // namespace

// A typed line runs like a program of one line. It may jump into the program.
void StartDirectLine(Board& board, const std::string& line) {
    board.basic.directLine = line;
    StartRunning(board, BasicPlace{true, 0, 0});
}

// RUN always comes back by the loud prompt, also from an empty program.
void RunProgram(Board& board) {
    ClearVariables(board);
    board.basic.timerStart = board.now;
    board.prompt.loud = true;
    if (board.program.lines.empty() && board.facts.cmm2) return FailWith(board, "Nothing to run");
    StartRunning(board, BasicPlace{false, 0, 0});
}

void ResumeBasic(Board& board) {
    StartActivity(board, kRunning);
    WakeIn(board, 0);
}

bool BasicIsRunning(const Board& board) {
    return board.activity->time == RunSlice;
}

void ChargeWork(Board& board, size_t bytes) {
    constexpr size_t kBytesPerStatement = 64;
    board.basic.cost += static_cast<int64_t>(bytes / kBytesPerStatement);
}

// The typed line goes too: nothing is left to go on with.
void StopProgram(Board& board) {
    board.basic.loops.clear();
    board.basic.failed = false;
    board.basic.place = BasicPlace();
    board.basic.directLine.clear();
}

void ClearVariables(Board& board) {
    board.basic.variables.clear();
    board.basic.elements = 0;
}

// The first error of a statement counts; what follows from it is not reported.
bool Fail(Board& board, std::string_view message) {
    if (!board.basic.failed) board.basic.error = message;
    board.basic.failed = true;
    return false;
}

void Refuse(Board& board, std::string_view message) {
    Fail(board, message);
}

}  // namespace simulator
