#include "simulator/basic/BasicMachine.h"

#include <algorithm>
#include <utility>

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"
#include "simulator/basic/BasicFlow.h"
#include "simulator/basic/BasicStatements.h"

// A millisecond of board time runs a fixed number of statements. Commands that take time hand
// the console to an activity of their own and come back by ResumeBasic; the cursor stands behind
// them all the while.

namespace simulator {
namespace {

constexpr int64_t kFullOutputWaitMs = 5;

void RunSlice(Board& board);
const BoardActivity kRunning = {nullptr, RunSlice, ReturnToPromptLoudly};

// Steps over a line number or a label at the start of a program line.
void SkipLabel(Board& board) {
    BasicPlace& place = board.basic.place;
    if (place.direct || place.at != 0) return;
    PeekChar(board);
    const std::string& line = CurrentLine(board);
    const size_t digits = std::min(line.find_first_not_of("0123456789", place.at), line.size());
    const size_t end = place.at + WordLength(line, place.at);
    if (digits > place.at) {
        place.at = digits;
    } else if (end > place.at && end < line.size() && line[end] == ':' &&
               !FindCommand(board.facts, line.substr(place.at, end - place.at))) {
        place.at = end + 1;
    }
}

// The cursor to the start of the next statement; false when there is none.
bool FindStatement(Board& board) {
    while (true) {
        SkipLabel(board);
        while (TakeChar(board, ':')) {
        }
        const char c = PeekChar(board);
        if (c != '\0' && c != '\'') return true;
        if (!GoToNextLine(board)) return false;
    }
}

// What stands at the cursor is no statement, or more than one.
void FailHere(Board& board, std::string_view otherwise) {
    const std::string word = TakeWord(board);
    if (IsAbsentWord(word)) return Refuse(board, word + " is not in the simulated board");
    Fail(board, otherwise);
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
    const std::string word = TakeWord(board);
    if (const BasicCommand* command = FindCommand(board.facts, word)) {
        command->run(board);
        if (command->openEnd) return;
    } else {
        board.basic.place = before;
        if (IsAbsentWord(word) || !IsAssignment(board)) return FailHere(board, "Unknown command");
        RunLet(board);
    }
    if (!board.basic.failed && BasicIsRunning(board) && !AtStatementEnd(board)) {
        FailHere(board, "Syntax");
    }
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
    if (TakeChar(board, '?')) {
        RunPrint(board);
    } else {
        RunNamed(board);
    }
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
    ChainProgram(board);
}

void ChainProgram(Board& board) {
    board.prompt.loud = true;
    if (board.program.lines.empty() && board.facts.cmm2) {
        FailWith(board, "Nothing to run");
    } else {
        StartRunning(board, BasicPlace{false, 0, 0});
    }
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
