#include "simulator/basic/BasicStatements.h"

#include "simulator/Board.h"
#include "simulator/basic/BasicVariables.h"

namespace simulator {

namespace {

constexpr int kTabStop = 8;

// A positive number has a blank in place of its sign.
void PrintItem(Board& board) {
    const BasicValue value = TakeValue(board);
    if (board.basic.failed) return;
    if (value.isText) {
        Put(board, value.text);
    } else {
        Put(board, (value.number >= 0 ? " " : "") + NumberText(value.number));
    }
}

// A comma goes on to the next multiple of eight columns, by one blank at least.
void PrintTab(Board& board) {
    do Put(board, " ");
    while ((board.out.column - 1) % kTabStop != 0);
}

void AssignInput(Board& board, const std::string& name, const std::string& text) {
    if (!name.empty() && name.back() == '$') {
        AssignValue(board, PlaceOf(board, name), name, TextValue(text));
        return;
    }
    AssignValue(board, PlaceOf(board, name), name, NumberValue(std::strtod(text.c_str(), nullptr)));
}

// The line that INPUT waited for. Fields that are missing are empty or 0.
void InputTyped(Board& board, const std::string& line) {
    const std::vector<std::string> names = std::move(board.basic.inputNames);
    board.basic.inputNames.clear();
    const std::vector<std::string> fields = SplitFields(line, ',', names.size());
    for (size_t i = 0; i < names.size(); ++i) {
        AssignInput(board, names[i], i < fields.size() ? fields[i] : std::string());
    }
    ResumeBasic(board);
}

}  // namespace

// A line end follows unless the list ends in a separator. Items may touch each other without
// any.
void RunPrint(Board& board) {
    bool endsLine = true;
    while (!AtStatementEnd(board)) {
        endsLine = false;
        if (TakeChar(board, ';')) continue;
        if (TakeChar(board, ',')) {
            PrintTab(board);
            continue;
        }
        PrintItem(board);
        if (board.basic.failed) return;
        endsLine = true;
    }
    if (endsLine) NewLine(board);
}

// The place is found first: an index that is out of bounds fails before the value is read.
void RunLet(Board& board) {
    const BasicPlace before = board.basic.place;
    const std::string name = TakeWord(board);
    board.basic.place = before;
    BasicValue* place = TakePlace(board);
    if (!place || !Expect(board, '=')) return;
    const BasicValue value = TakeValue(board);
    AssignValue(board, place, name, value);
}

void RunDim(Board& board) {
    const bool text = TakeKeyword(board, "STRING");
    if (!text && !TakeKeyword(board, "INTEGER")) TakeKeyword(board, "FLOAT");
    do DimensionOne(board, text);
    while (!board.basic.failed && TakeChar(board, ','));
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
    board.basic.inputNames.clear();
    do {
        board.basic.inputNames.push_back(TakeWord(board));
        if (board.basic.inputNames.back().empty()) {
            Fail(board, "Syntax");
            return;
        }
    } while (TakeChar(board, ','));
    if (board.basic.failed) return;
    Put(board, question);
    ReadLine(board, InputTyped);
}

// Board time passes; nothing of this millisecond's budget is left.
void RunPause(Board& board) {
    constexpr double kLongestPause = 2147483647;
    const double ms = TakeNumber(board);
    if (board.basic.failed) return;
    if (!(ms >= 0 && ms <= kLongestPause)) {
        Fail(board, "Number out of bounds");
        return;
    }
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

// Accepted, and of no effect: the generator's seed belongs to the board.
void RunRandomize(Board& board) {
    if (!AtStatementEnd(board)) TakeNumber(board);
}

void RunRemark(Board& board) {
    SkipLine(board);
}

}  // namespace simulator
