// The statements that decide what runs next. Loops and blocks are found by reading on from the
// cursor. Each line that is passed over costs a statement, so a search through a long program
// takes its board time.
#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"
#include "simulator/basic/BasicVariables.h"

namespace simulator {
namespace {

// The next word of the cursor's line, past strings and signs; empty at its end or its comment.
std::string NextWord(Board& board) {
    for (char c; (c = PeekChar(board)) != '\0' && c != '\'';) {
        std::string word = TakeWord(board);
        if (word == "REM") SkipLine(board);
        if (!word.empty()) return word;
        size_t& at = board.basic.place.at;
        const std::string& line = CurrentLine(board);
        at = c == '"' ? std::min(line.find('"', at + 1), line.size() - 1) + 1 : at + 1;
    }
    return {};
}

// From behind the word `open` to behind the word `close` that belongs to it; false without one.
bool SkipPast(Board& board, const char* open, const char* close, bool onThisLine) {
    int nesting = 0;
    do {
        for (std::string word; !(word = NextWord(board)).empty();) {
            if (word == open) ++nesting;
            if (word == close && nesting-- == 0) return true;
        }
    } while (!onThisLine && GoToNextLine(board));
    return false;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The first line of that label counts, and a jump leaves loops open. A search through a long
// program takes its time.
void RunGoto(Board& board) {
    constexpr size_t kLinesPerStatement = 256;
    const std::string label =
        IsDigit(PeekChar(board)) ? NumberText(TakeNumber(board)) : TakeWord(board);
    const auto& lines = board.program.lines;
    size_t i = 0;
    while (i < lines.size() && !SameWord(LabelOf(board, lines[i]), label)) ++i;
    board.basic.cost += static_cast<int64_t>(i / kLinesPerStatement);
    if (label.empty() || i == lines.size()) return Refuse(board, "Cannot find label");
    board.basic.place = BasicPlace{false, static_cast<int>(i), 0};
}

// Where the true or false branch of an IF goes on: a bare number is a line to go to.
void EnterBranch(Board& board) {
    if (IsDigit(PeekChar(board))) RunGoto(board);
}

// Is the IF at the start of `line` one of several lines, that is, does it end in THEN?
bool IsBlockIf(std::string_view line) {
    const std::string_view code = TrimBlanks(line.substr(0, CommentStart(line)));
    return code.size() > 5 && SameWord(code.substr(code.size() - 5), " THEN");
}

void SkipBlock(Board& board, bool stopsAtElse);

// ELSEIF of a block: its condition decides anew.
void DecideAgain(Board& board) {
    const bool isTrue = TakeNumber(board) != 0;
    if (!TakeKeyword(board, "THEN")) Fail(board, "Syntax");
    if (!board.basic.failed && !isTrue) SkipBlock(board, true);
}

// Goes on behind the ENDIF of the current block, or at its next ELSE if `stopsAtElse`. Both
// spellings count, ELSEIF and ELSE IF.
void SkipBlock(Board& board, bool stopsAtElse) {
    int nesting = 0;
    while (GoToNextLine(board)) {
        std::string word = TakeWord(board);
        if ((word == "END" || word == "ELSE") && TakeKeyword(board, "IF")) word += "IF";
        if (word == "IF") nesting += IsBlockIf(CurrentLine(board));
        if (word == "ENDIF" && nesting-- == 0) return;
        if (nesting > 0 || !stopsAtElse) continue;
        if (word == "ELSEIF") return DecideAgain(board);
        if (word == "ELSE") return;
    }
    Fail(board, "IF without a matching ENDIF");
}

// Three forms: "IF x THEN" with nothing behind it opens a block, "IF x THEN ..." holds for its
// line, and "IF x GOTO n" needs no THEN.
void RunIf(Board& board) {
    const bool isTrue = TakeNumber(board) != 0;
    if (board.basic.failed) return;
    const bool hasThen = TakeKeyword(board, "THEN");
    const char next = PeekChar(board);
    if (hasThen && (next == '\0' || next == '\'')) {
        if (!isTrue) SkipBlock(board, true);
    } else if (isTrue ? hasThen : SkipPast(board, "IF", "ELSE", true)) {
        EnterBranch(board);
    }
}

// Reached from a true branch: what follows is the other one. At the start of its line it
// belongs to a block, elsewhere to its line.
void RunElse(Board& board) {
    if (!board.basic.place.direct && StartsWithWord(TrimBlanks(CurrentLine(board)), "ELSE"))
        return SkipBlock(board, false);
    SkipLine(board);
}

// A loop counts up or down by the sign of its step; with a step of 0 it never ends.
bool StillInside(const BasicLoop& loop, double value) {
    return loop.step >= 0 ? value <= loop.limit : value >= loop.limit;
}

// Drops the innermost loop of that kind, and variable unless empty, and all inside it. False if
// there is none; else it is in *loop.
bool PopLoop(Board& board, bool isFor, const std::string& variable, BasicLoop* loop) {
    auto& loops = board.basic.loops;
    for (size_t i = loops.size(); i-- > 0;) {
        if (loops[i].isFor != isFor || (!variable.empty() && loops[i].variable != variable))
            continue;
        *loop = loops[i];
        loops.resize(i);
        return true;
    }
    return false;
}

// Goes through the body, or past it to behind `close`. Open loops are bounded: a program that
// leaves its loops by GOTO comes to an end in words.
void EnterLoop(Board& board, BasicLoop loop, bool enters) {
    if (board.basic.failed) return;
    const char* const open = loop.isFor ? "FOR" : "DO";
    const char* const close = loop.isFor ? "NEXT" : "LOOP";
    if (!enters) {
        if (!SkipPast(board, open, close, false))
            Fail(board, std::string(open) + " without a matching " + close);
        board.basic.place.at = StatementEnd(CurrentLine(board), board.basic.place.at);
    } else if (board.basic.loops.size() >= kMaximumNesting) {
        Fail(board, "Too many nested loops");
    } else {
        board.basic.loops.push_back(std::move(loop));
    }
}

// "i = 1 TO 9 STEP 2"; the variable has its first value. FOR of a variable that already counts
// starts it anew. A loop whose start is past its end is passed over whole.
void RunFor(Board& board) {
    BasicLoop loop{true, TakeWord(board), 0, 1, {}}, old;
    if (loop.variable.empty() || !Expect(board, '=')) return Refuse(board, "Syntax");
    const BasicValue start = TakeValue(board);
    if (!TakeKeyword(board, "TO")) Fail(board, "FOR with misplaced TO");
    loop.limit = TakeNumber(board);
    if (TakeKeyword(board, "STEP")) loop.step = TakeNumber(board);
    AssignValue(board, PlaceOf(board, loop.variable), start);
    loop.body = board.basic.place;
    PopLoop(board, true, loop.variable, &old);
    EnterLoop(board, loop, StillInside(loop, start.number));
}

// NEXT may name variables, from the inside out; loops that were left open inside are dropped.
void RunNext(Board& board) {
    do {
        BasicLoop loop;
        if (!PopLoop(board, true, TakeWord(board), &loop))
            return Refuse(board, "Cannot find a matching FOR");
        BasicValue* counter = PlaceOf(board, loop.variable);
        if (!counter) return;
        counter->number += loop.step;
        if (StillInside(loop, counter->number)) {
            board.basic.place = loop.body;
            board.basic.loops.push_back(std::move(loop));
            return;
        }
    } while (TakeChar(board, ','));
}

// "WHILE x" or "UNTIL x" at the cursor; true where neither stands.
bool TakeLoopCondition(Board& board) {
    if (TakeKeyword(board, "WHILE")) return TakeNumber(board) != 0;
    if (TakeKeyword(board, "UNTIL")) return TakeNumber(board) == 0;
    return true;
}

// The place of the loop is behind the word DO, so that each turn meets the condition again.
void RunDo(Board& board) {
    const BasicLoop loop{false, {}, 0, 0, board.basic.place};
    const bool enters = TakeLoopCondition(board);
    EnterLoop(board, loop, enters);
}

// A condition may stand at either end, and also at both.
void RunLoop(Board& board) {
    const bool repeats = TakeLoopCondition(board);
    BasicLoop loop;
    if (!PopLoop(board, false, "", &loop)) return Refuse(board, "LOOP without a matching DO");
    if (!repeats || board.basic.failed) return;
    board.basic.place = loop.body;
    RunDo(board);
}

// END IF begins with the same word.
void RunEnd(Board& board) {
    if (!TakeKeyword(board, "IF")) ReturnToPrompt(board);
}

}  // namespace

const CommandRows& FlowCommands() {
    static const CommandRows rows = {
        {"Do", RunDo, true},     {"Else", RunElse, true},  {"ElseIf", RunElse, true},
        {"End", RunEnd, true},   {"EndIf", [](Board&) {}}, {"For", RunFor},
        {"GoTo", RunGoto, true}, {"If", RunIf, true},      {"Loop", RunLoop, true},
        {"Next", RunNext, true},
    };
    return rows;
}

}  // namespace simulator
