#include "simulator/basic/BasicFlow.h"

#include "simulator/Board.h"
#include "simulator/basic/BasicSubs.h"
#include "simulator/basic/BasicVariables.h"

namespace simulator {

// Loops and blocks are found by reading on from the cursor. Each line that is passed over
// costs a statement, so a search through a long program takes its board time.

namespace {

// Is the IF at the start of `line` one of several lines, that is, does it end in THEN?
bool IsBlockIf(std::string_view line) {
    const std::string_view code = TrimBlanks(line.substr(0, CommentStart(line)));
    return code.size() > 4 && SameWord(code.substr(code.size() - 4), "THEN") &&
           code[code.size() - 5] == ' ';
}

// Where the true or false branch of an IF goes on: a bare number is a line to go to.
void EnterBranch(Board& board) {
    const char c = PeekChar(board);
    if (c >= '0' && c <= '9') RunGoto(board);
}

void DecideBlock(Board& board, bool isTrue);

// ELSE IF and ELSEIF of a block: its condition decides anew.
void DecideAgain(Board& board) {
    const bool isTrue = TakeNumber(board) != 0;
    if (!board.basic.failed && !TakeKeyword(board, "THEN")) Fail(board, "Syntax");
    if (!board.basic.failed) DecideBlock(board, isTrue);
}

// Both spellings count, ELSEIF and ELSE IF.
bool TakeElseIf(Board& board) {
    if (TakeKeyword(board, "ELSEIF")) return true;
    const BasicPlace before = board.basic.place;
    if (TakeKeyword(board, "ELSE") && TakeKeyword(board, "IF")) return true;
    board.basic.place = before;
    return false;
}

bool TakeEndIf(Board& board) {
    if (TakeKeyword(board, "ENDIF")) return true;
    const BasicPlace before = board.basic.place;
    if (TakeKeyword(board, "END") && TakeKeyword(board, "IF")) return true;
    board.basic.place = before;
    return false;
}

// Goes on behind the ENDIF of the current block, or at its next ELSE if `stopsAtElse`.
void SkipBlock(Board& board, bool stopsAtElse) {
    int nesting = 0;
    while (GoToNextLine(board)) {
        if (TakeEndIf(board)) {
            if (nesting-- == 0) return;
        } else if (TakeKeyword(board, "IF")) {
            if (IsBlockIf(CurrentLine(board))) ++nesting;
        } else if (nesting == 0 && stopsAtElse && TakeElseIf(board)) {
            DecideAgain(board);
            return;
        } else if (nesting == 0 && stopsAtElse && TakeKeyword(board, "ELSE")) {
            return;
        }
    }
    Fail(board, "IF without a matching ENDIF");
}

void DecideBlock(Board& board, bool isTrue) {
    if (!isTrue) SkipBlock(board, true);
}

// The ELSE that belongs to a single-line IF whose condition is false.
void SkipToElse(Board& board) {
    int nesting = 0;
    while (PeekChar(board) != '\0') {
        const std::string& line = CurrentLine(board);
        size_t& at = board.basic.place.at;
        if (line[at] == '\'') break;
        if (line[at] == '"') {
            const size_t end = line.find('"', at + 1);
            at = end == std::string::npos ? line.size() : end + 1;
            continue;
        }
        const std::string word = TakeWord(board);
        if (word.empty()) ++at;
        if (word == "IF") ++nesting;
        if (word != "ELSE") continue;
        if (nesting-- > 0) continue;
        EnterBranch(board);
        return;
    }
    SkipLine(board);
}

// Behind the word `close` that matches the loop at the cursor.
void SkipPast(Board& board, const char* open, const char* close) {
    int nesting = 0;
    do {
        while (true) {
            const std::string& line = CurrentLine(board);
            size_t& at = board.basic.place.at;
            const std::string word = TakeWord(board);
            if (word == open) ++nesting;
            const bool found = word == close && nesting-- == 0;
            at = StatementEnd(line, at);
            if (found) return;
            if (at >= line.size() || line[at] == '\'') break;
            ++at;
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
    board.basic.loops.resize(index, BasicLoop{BasicLoopKind::kDo, {}, 0, 0, {}});
}

// The innermost loop of that kind (and variable, unless empty) that was opened since the
// current call; npos if there is none.
size_t FindLoop(const Board& board, BasicLoopKind kind, const std::string& variable) {
    const auto& loops = board.basic.loops;
    const size_t base = board.basic.calls.empty() ? 0 : board.basic.calls.back().loops;
    for (size_t i = loops.size(); i-- > base;) {
        if (loops[i].kind == kind && (variable.empty() || loops[i].variable == variable)) return i;
    }
    return std::string::npos;
}

// Open loops are bounded: a program that leaves its loops by GOTO comes to an end in words.
void PushLoop(Board& board, BasicLoop loop) {
    if (board.basic.loops.size() >= kMaximumNesting) {
        Fail(board, "Too many nested loops");
        return;
    }
    board.basic.loops.push_back(std::move(loop));
}

// "WHILE x" or "UNTIL x" at the cursor; true where neither stands.
bool TakeLoopCondition(Board& board) {
    if (TakeKeyword(board, "WHILE")) return TakeNumber(board) != 0;
    if (TakeKeyword(board, "UNTIL")) return TakeNumber(board) == 0;
    return true;
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
        DecideBlock(board, isTrue);
    } else if (!isTrue) {
        SkipToElse(board);
    } else if (hasThen) {
        EnterBranch(board);
    }
}

// Reached from a true branch: what follows is the other one. At the start of its line it
// belongs to a block, elsewhere to its line.
void RunElse(Board& board) {
    const std::string_view line = CurrentLine(board);
    const std::string_view start = TrimBlanks(line);
    if (!board.basic.place.direct && StartsWithWord(start, "ELSE")) {
        SkipBlock(board, false);
    } else {
        SkipLine(board);
    }
}

void RunEndIf(Board&) {}

// FOR of a variable that already counts starts it anew: the old loop and all inside it are
// dropped. A loop whose start is past its end is passed over whole.
void RunFor(Board& board) {
    const std::string name = TakeWord(board);
    if (name.empty() || name.back() == '$') {
        Fail(board, "Syntax");
        return;
    }
    if (!Expect(board, '=')) return;
    const BasicValue start = NumberValue(TakeNumber(board));
    if (!board.basic.failed && !TakeKeyword(board, "TO")) Fail(board, "FOR with misplaced TO");
    BasicLoop loop{BasicLoopKind::kFor, name, TakeNumber(board), 1, {}};
    if (TakeKeyword(board, "STEP")) loop.step = TakeNumber(board);
    if (board.basic.failed) return;
    AssignValue(board, PlaceOf(board, name), name, start);
    const size_t old = FindLoop(board, BasicLoopKind::kFor, name);
    if (old != std::string::npos) DropLoopsFrom(board, old);
    loop.body = board.basic.place;
    if (!StillInside(loop, start.number)) {
        board.basic.place.at = StatementEnd(CurrentLine(board), board.basic.place.at);
        TakeChar(board, ':');
        SkipPast(board, "FOR", "NEXT");
        return;
    }
    PushLoop(board, loop);
}

// NEXT may name variables, from the inside out; loops that were left open inside are dropped.
void RunNext(Board& board) {
    do {
        const std::string name = TakeWord(board);
        const size_t at = FindLoop(board, BasicLoopKind::kFor, name);
        if (at == std::string::npos) {
            Fail(board, "Cannot find a matching FOR");
            return;
        }
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
    BasicLoop loop{BasicLoopKind::kDo, {}, 0, 0, board.basic.place};
    const bool enters = TakeLoopCondition(board);
    if (board.basic.failed) return;
    if (enters) {
        PushLoop(board, loop);
        return;
    }
    TakeChar(board, ':');
    SkipPast(board, "DO", "LOOP");
}

// A condition may stand at either end, and also at both.
void RunLoop(Board& board) {
    const bool repeats = TakeLoopCondition(board);
    const size_t at = FindLoop(board, BasicLoopKind::kDo, "");
    if (at == std::string::npos) {
        Fail(board, "LOOP without a matching DO");
        return;
    }
    const BasicPlace head = board.basic.loops[at].body;
    DropLoopsFrom(board, at);
    if (!repeats || board.basic.failed) return;
    board.basic.place = head;
    RunDo(board);
}

// EXIT alone leaves a DO loop, as it always has.
void RunExit(Board& board) {
    if (TakeKeyword(board, "SUB")) {
        LeaveSub(board);
        return;
    }
    const bool isFor = TakeKeyword(board, "FOR");
    if (!isFor) TakeKeyword(board, "DO");
    const BasicLoopKind kind = isFor ? BasicLoopKind::kFor : BasicLoopKind::kDo;
    const size_t at = FindLoop(board, kind, "");
    if (at == std::string::npos) {
        Fail(board, "No loop to exit");
        return;
    }
    DropLoopsFrom(board, at);
    board.basic.place.at = StatementEnd(CurrentLine(board), board.basic.place.at);
    TakeChar(board, ':');
    SkipPast(board, isFor ? "FOR" : "DO", isFor ? "NEXT" : "LOOP");
}

// A line number is a label of digits. A jump leaves loops and calls open.
void RunGoto(Board& board) {
    const char c = PeekChar(board);
    std::string label = TakeWord(board);
    if (label.empty() && c >= '0' && c <= '9') label = NumberText(TakeNumber(board));
    const auto found = board.basic.labels.find(label);
    if (found == board.basic.labels.end()) {
        Fail(board, "Cannot find label");
        return;
    }
    board.basic.place = BasicPlace{false, found->second, 0};
}

void RunGosub(Board& board) {
    BasicCall call{{}, board.basic.loops.size(), false, {}, {}};
    RunGoto(board);
    if (board.basic.failed) return;
    if (board.basic.calls.size() >= kMaximumNesting) {
        Fail(board, "Too many nested GOSUB");
        return;
    }
    // Behind the label: the statement itself is read again for its end.
    call.back = board.basic.statement;
    call.back.at =
        StatementEnd(call.back.direct ? board.basic.directLine : ProgramLine(board, call.back.line),
                     call.back.at);
    board.basic.calls.push_back(std::move(call));
}

// Loops that were opened since the GOSUB end with it.
void RunReturn(Board& board) {
    auto& calls = board.basic.calls;
    if (calls.empty() || calls.back().isSub) {
        Fail(board, "Nothing to return to");
        return;
    }
    board.basic.place = calls.back().back;
    DropLoopsFrom(board, std::min(calls.back().loops, board.basic.loops.size()));
    calls.pop_back();
}

// END SUB and END IF begin with the same word as END.
void RunEnd(Board& board) {
    if (TakeKeyword(board, "SUB")) {
        LeaveSub(board);
    } else if (!TakeKeyword(board, "IF")) {
        EndBasic(board);
    }
}

}  // namespace simulator
