// The plain statements: output, input, variables, waiting.
#include <cmath>
#include <cstdlib>

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"
#include "simulator/basic/BasicVariables.h"

namespace simulator {
namespace {

constexpr int kTabStop = 8;

// A positive number has a blank in place of its sign.
void PrintItem(Board& board) {
    const BasicValue value = TakeValue(board);
    if (board.basic.failed) return;
    const bool blank = !value.isText && value.number >= 0;
    Put(board, (blank ? " " : "") + (value.isText ? value.text : NumberText(value.number)));
}

// A comma goes on to the next multiple of eight columns, by one blank at least.
void PrintTab(Board& board) {
    do Put(board, " ");
    while ((board.out.column - 1) % kTabStop != 0);
}

// A line end follows unless the list ends in a separator. Items may touch each other without
// any.
void RunPrint(Board& board) {
    bool endsLine = true;
    while (!AtStatementEnd(board) && !board.basic.failed) {
        endsLine = false;
        if (TakeChar(board, ';')) continue;
        if (TakeChar(board, ',')) {
            PrintTab(board);
            continue;
        }
        PrintItem(board);
        endsLine = true;
    }
    if (endsLine && !board.basic.failed) NewLine(board);
}

// The place is found first: an index that is out of bounds fails before the value is read.
void RunLet(Board& board) {
    BasicValue* place = TakePlace(board);
    if (place && Expect(board, '=')) AssignValue(board, place, TakeValue(board));
}

void RunDim(Board& board) {
    do DimensionOne(board);
    while (!board.basic.failed && TakeChar(board, ','));
}

// The line that INPUT waited for. What is no number counts as 0.
void InputTyped(Board& board, const std::string& line) {
    const std::string text(TrimBlanks(line));
    const double number = std::strtod(text.c_str(), nullptr);
    BasicValue* place = PlaceOf(board, board.basic.inputName);
    if (place) AssignValue(board, place, {place->isText, std::isfinite(number) ? number : 0, text});
    ResumeBasic(board);
}

// INPUT "text"; adds a question mark, INPUT "text", does not.
void RunInput(Board& board) {
    std::string question = "? ";
    if (PeekChar(board) == '"') {
        question = TakeText(board);
        if (TakeChar(board, ';')) {
            question += "? ";
        } else if (!Expect(board, ',')) {
            return;
        }
    }
    board.basic.inputName = TakeWord(board);
    if (board.basic.inputName.empty()) return Refuse(board, "Syntax");
    if (!AtStatementEnd(board))
        return Refuse(board, "INPUT takes one variable in the simulated board");
    Put(board, question);
    ReadLine(board, InputTyped);
}

// Board time passes; nothing of this millisecond's budget is left.
void RunPause(Board& board) {
    constexpr double kLongestPause = 2147483647;
    const double ms = TakeNumber(board);
    if (board.basic.failed) return;
    if (!(ms >= 0 && ms <= kLongestPause)) return Refuse(board, "Number out of bounds");
    board.basic.cost += board.facts.statementsPerMs;
    WakeIn(board, static_cast<int64_t>(ms));
}

// Clears the terminal and homes the cursor. The column starts anew.
void RunCls(Board& board) {
    PutRaw(board, "\x1b[2J\x1b[H");
    board.out.column = 1;
}

void RunTimer(Board& board) {
    if (!Expect(board, '=')) return;
    board.basic.timerStart = board.now - static_cast<int64_t>(TakeInteger(board, 0, 2147483647));
}

// Of no effect: the generator's seed belongs to the board.
void RunRandomize(Board& board) {
    if (!AtStatementEnd(board)) TakeNumber(board);
}

}  // namespace

const CommandRows& PlainCommands() {
    static const CommandRows rows = {
        {"CLS", RunCls},
        {"Dim", RunDim},
        {"Input", RunInput},
        {"Let", RunLet},
        {"Pause", RunPause},
        {"Print", RunPrint},
        {"Randomize", RunRandomize},
        {"Rem", SkipLine, true},
        {"Timer", RunTimer},
    };
    return rows;
}

}  // namespace simulator
