#include "simulator/basic/BasicFlow.h"

#include "simulator/Board.h"
#include "simulator/basic/BasicVariables.h"

// Loops and blocks are found by reading on from the cursor. Each line that is passed over
// costs a statement, so a search through a long program takes its board time.

namespace simulator {
namespace {

// Is the IF at the start of `line` one of several lines, that is, does it end in THEN?
bool IsBlockIf(std::string_view line) {
    const std::string_view code = TrimBlanks(line.substr(0, CommentStart(line)));
    return code.size() > 5 && SameWord(code.substr(code.size() - 5), " THEN");
}

// Where the true or false branch of an IF goes on: a bare number is a line to go to.
void EnterBranch(Board& board) {
    const char c = PeekChar(board);
    if (c >= '0' && c <= '9') RunGoto(board);
}

void SkipBlock(Board& board, bool stopsAtElse);

// ELSEIF of a block: its condition decides anew.
void DecideAgain(Board& board) {
    const bool isTrue = TakeNumber(board) != 0;
    if (!board.basic.failed && !TakeKeyword(board, "THEN")) Fail(board, "Syntax");
    if (!board.basic.failed && !isTrue) SkipBlock(board, true);
}

// Goes on behind the ENDIF of the current block, or at its next ELSE if `stopsAtElse`. Both
// spellings count, ELSEIF and ELSE IF.
void SkipBlock(Board& board, bool stopsAtElse) {
    int nesting = 0;
    while (GoToNextLine(board)) {
        if (TakeKeyword(board, "ENDIF") || TakeKeywords(board, "END", "IF")) {
            if (nesting-- == 0) return;
        } else if (TakeKeyword(board, "IF")) {
            nesting += IsBlockIf(CurrentLine(board));
        } else if (nesting > 0 || !stopsAtElse) {
            continue;
        } else if (TakeKeyword(board, "ELSEIF") || TakeKeywords(board, "ELSE", "IF")) {
            DecideAgain(board);
            return;
        } else if (TakeKeyword(board, "ELSE")) {
            return;
        }
    }
    Fail(board, "IF without a matching ENDIF");
}

// The ELSE that belongs to a single-line IF whose condition is false.
void SkipToElse(Board& board) {
    int nesting = 0;
    for (char c; (c = PeekChar(board)) != '\0' && c != '\'';) {
        const std::string& line = CurrentLine(board);
        size_t& at = board.basic.place.at;
        const std::string word = TakeWord(board);
        // Past a string, or past one character.
        if (c == '"') at = std::min(line.find('"', at + 1), line.size() - 1);
        if (word.empty()) ++at;
        if (word == "IF") ++nesting;
        if (word == "ELSE" && nesting-- == 0) return EnterBranch(board);
    }
    SkipLine(board);
}

// From the end of the head at the cursor to behind the word `close` that matches it.
void SkipPast(Board& board, const char* open, const char* close) {
    int nesting = 0;
    do {
        for (bool more = true; more;) {
            const std::string& line = CurrentLine(board);
            size_t& at = board.basic.place.at;
            const std::string word = TakeWord(board);
            if (word == open) ++nesting;
            const bool found = word == close && nesting-- == 0;
            at = StatementEnd(line, at);
            if (found) return;
            more = at < line.size() && line[at++] == ':';
        }
    } while (GoToNextLine(board));
    Fail(board, std::string(open) + " without a matching " + close);
}

// A loop counts up or down by the sign of its step; with a step of 0 it never ends.
bool StillInside(const BasicLoop& loop, double value) {
    return loop.step >= 0 ? value <= loop.limit : value >= loop.limit;
}

// Drops loops from the innermost on down to the one at `index`, which goes too.
void DropLoopsFrom(Board& board, size_t index) {
    board.basic.loops.resize(index);
}

// The innermost loop of that kind, and variable unless empty; npos if there is none.
size_t FindLoop(const Board& board, bool isFor, const std::string& variable) {
    const auto& loops = board.basic.loops;
    for (size_t i = loops.size(); i-- > 0;) {
        if (loops[i].isFor == isFor && (variable.empty() || loops[i].variable == variable))
            return i;
    }
    return std::string::npos;
}

// Open loops are bounded: a program that leaves its loops by GOTO comes to an end in words.
void PushLoop(Board& board, BasicLoop loop) {
    if (board.basic.loops.size() >= kMaximumNesting) return Refuse(board, "Too many nested loops");
    board.basic.loops.push_back(std::move(loop));
}

// "WHILE x" or "UNTIL x" at the cursor; true where neither stands.
bool TakeLoopCondition(Board& board) {
    if (TakeKeyword(board, "WHILE")) return TakeNumber(board) != 0;
    if (TakeKeyword(board, "UNTIL")) return TakeNumber(board) == 0;
    return true;
}

// "i = 1 TO 9 STEP 2"; the variable has its first value.
BasicLoop TakeForHead(Board& board) {
    BasicLoop loop{true, TakeWord(board), 0, 1, {}};
    if (loop.variable.empty() || !Expect(board, '=')) return Fail(board, "Syntax"), loop;
    const BasicValue start = TakeValue(board);
    if (!board.basic.failed && !TakeKeyword(board, "TO")) Fail(board, "FOR with misplaced TO");
    loop.limit = TakeNumber(board);
    if (TakeKeyword(board, "STEP")) loop.step = TakeNumber(board);
    AssignValue(board, PlaceOf(board, loop.variable), loop.variable, start);
    loop.body = board.basic.place;
    return loop;
}

}  // namespace

bool GoToNextLine(Board& board) {
    BasicPlace& place = board.basic.place;
    if (place.direct) return false;
    ++board.basic.cost;
    place.at = 0;
    return static_cast<size_t>(++place.line) < board.program.lines.size();
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
    } else if (!isTrue) {
        SkipToElse(board);
    } else if (hasThen) {
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

void RunEndIf(Board&) {}

// FOR of a variable that already counts starts it anew: the old loop and all inside it are
// dropped. A loop whose start is past its end is passed over whole.
void RunFor(Board& board) {
    const BasicLoop loop = TakeForHead(board);
    if (board.basic.failed) return;
    const size_t old = FindLoop(board, true, loop.variable);
    if (old != std::string::npos) DropLoopsFrom(board, old);
    if (StillInside(loop, PlaceOf(board, loop.variable)->number)) return PushLoop(board, loop);
    TakeChar(board, ':');
    SkipPast(board, "FOR", "NEXT");
}

// NEXT may name variables, from the inside out; loops that were left open inside are dropped.
void RunNext(Board& board) {
    do {
        const size_t at = FindLoop(board, true, TakeWord(board));
        if (at == std::string::npos) return Refuse(board, "Cannot find a matching FOR");
        DropLoopsFrom(board, at + 1);
        const BasicLoop& loop = board.basic.loops.back();
        BasicValue* counter = PlaceOf(board, loop.variable);
        if (!counter) return;
        counter->number += loop.step;
        if (StillInside(loop, counter->number)) {
            board.basic.place = loop.body;
            return;
        }
        DropLoopsFrom(board, at);
    } while (TakeChar(board, ','));
}

// The place of the loop is behind the word DO, so that each turn meets the condition again.
void RunDo(Board& board) {
    const BasicLoop loop{false, {}, 0, 0, board.basic.place};
    const bool enters = TakeLoopCondition(board);
    if (board.basic.failed) return;
    if (enters) return PushLoop(board, loop);
    TakeChar(board, ':');
    SkipPast(board, "DO", "LOOP");
}

// A condition may stand at either end, and also at both.
void RunLoop(Board& board) {
    const bool repeats = TakeLoopCondition(board);
    const size_t at = FindLoop(board, false, "");
    if (at == std::string::npos) return Refuse(board, "LOOP without a matching DO");
    const BasicPlace head = board.basic.loops[at].body;
    DropLoopsFrom(board, at);
    if (!repeats || board.basic.failed) return;
    board.basic.place = head;
    RunDo(board);
}

// A line number is a label of digits. A jump leaves loops open.
void RunGoto(Board& board) {
    const char c = PeekChar(board);
    std::string label = TakeWord(board);
    if (label.empty() && c >= '0' && c <= '9') label = NumberText(TakeNumber(board));
    const auto found = board.basic.labels.find(label);
    if (label.empty() || found == board.basic.labels.end())
        return Refuse(board, "Cannot find label");
    board.basic.place = BasicPlace{false, found->second, 0};
}

// END IF begins with the same word.
void RunEnd(Board& board) {
    if (!TakeKeyword(board, "IF")) ReturnToPrompt(board);
}

}  // namespace simulator
