#include "simulator/Pager.h"

#include <algorithm>

#include "simulator/Board.h"

namespace simulator {

// The lines of a listing are made before the first is printed, within the bounds of the drive
// and of program memory.

namespace {

constexpr char kAnyKey[] = "PRESS ANY KEY ...";
constexpr char kNextKey[] = "UP=prev  ANY KEY=next ...";
constexpr char kQuitKey[] = "UP=prev  ANY KEY=quit ...";
constexpr size_t kPlainErase = 17;
constexpr size_t kWalkErase = 30;
constexpr int64_t kFullOutputWaitMs = 5;

void TakeByte(Board& board, unsigned char c);
void TakeWalkByte(Board& board, unsigned char c);
void WalkHoldIsOver(Board& board);
void PrintLines(Board& board);
void PrintTail(Board& board);

const BoardActivity kPrinting = {nullptr, PrintLines, BreakToPrompt};
const BoardActivity kWaiting = {TakeByte, nullptr, BreakToPrompt};
const BoardActivity kWalkWaiting = {TakeWalkByte, WalkHoldIsOver, BreakToPrompt};
const BoardActivity kGap = {nullptr, PrintTail, BreakToPrompt};

// Whatever runs goes on: the listing may have been a statement of a program.
void EndPager(Board& board) {
    board.pager = Pager();
    ResumeBasic(board);
}

// The first page of either pager asks in the same words.
void Ask(Board& board) {
    Pager& pager = board.pager;
    if (!pager.walks) {
        Put(board, kAnyKey);
        StartActivity(board, kWaiting);
        return;
    }
    const bool last = pager.next == pager.lines.size();
    Put(board, pager.pageStart == 0 ? kAnyKey : last ? kQuitKey : kNextKey);
    pager.ended = last;
    StartActivity(board, kWalkWaiting);
}

// The free bytes take the firmware a walk through the whole drive, so the line has a gap.
void PrintSummary(Board& board) {
    Put(board, board.pager.summary);
    if (board.pager.summaryTail.empty()) {
        EndPager(board);
        return;
    }
    StartActivity(board, kGap);
    WakeIn(board, board.setup.summaryGapMs);
}

void PrintTail(Board& board) {
    Put(board, board.pager.summaryTail);
    EndPager(board);
}

// A page is full before the next line, or before the summary.
void PrintLines(Board& board) {
    Pager& pager = board.pager;
    const bool stops = pager.pageLines > 0;
    const bool moreThanAPage = pager.lines.size() > static_cast<size_t>(pager.pageLines);
    WakeNever(board);
    while (pager.next < pager.lines.size()) {
        if (OutputIsFull(board)) {
            WakeIn(board, kFullOutputWaitMs);
            return;
        }
        if (stops && pager.left == 0) {
            Ask(board);
            return;
        }
        Put(board, pager.lines[pager.next++]);
        NewLine(board);
        --pager.left;
    }
    if (pager.walks ? moreThanAPage : stops && pager.left <= 0 && !pager.summary.empty()) {
        Ask(board);
    } else {
        PrintSummary(board);
    }
}

// The next line is printed over the question.
void Erase(Board& board, size_t blanks) {
    Put(board, "\r" + std::string(blanks, ' ') + "\r");
}

void Continue(Board& board) {
    board.pager.left = board.pager.pageLines;
    StartActivity(board, kPrinting);
    WakeIn(board, 0);
}

// One raw byte goes on, whatever it is.
void TakeByte(Board& board, unsigned char) {
    Erase(board, kPlainErase);
    Continue(board);
}

// Up goes back a page, and a key on the last page ends the listing.
void TakeWalkKey(Board& board, unsigned char key) {
    Pager& pager = board.pager;
    const size_t page = static_cast<size_t>(pager.pageLines);
    Erase(board, kWalkErase);
    if (key == kKeyUp) {
        pager.pageStart -= std::min(pager.pageStart, page);
    } else if (pager.ended) {
        EndPager(board);
        return;
    } else {
        pager.pageStart = pager.next;
    }
    pager.next = pager.pageStart;
    Continue(board);
}

// This pager knows keys, so an arrow is one answer and not three.
void TakeWalkByte(Board& board, unsigned char c) {
    std::string keys;
    DecodeKeyByte(board.pager.keys, c, &keys);
    if (keys.empty()) {
        WakeIn(board, kEscapeHoldMs);
    } else {
        TakeWalkKey(board, static_cast<unsigned char>(keys[0]));
    }
}

void WalkHoldIsOver(Board& board) {
    std::string keys;
    DecodeKeyTimeout(board.pager.keys, &keys);
    TakeWalkKey(board, static_cast<unsigned char>(keys.empty() ? ' ' : keys[0]));
}

void Start(Board& board, int firstPage, int nextPage, int delayMs) {
    // A taller console than the row's own holds so much more on a page.
    const int more = nextPage > 0 ? board.height - board.facts.rows : 0;
    board.pager.left = std::max(firstPage + more, 1);
    board.pager.pageLines = nextPage > 0 ? std::max(nextPage + more, 1) : 0;
    StartActivity(board, kPrinting);
    WakeIn(board, delayMs);
}

}  // namespace

// An empty text is an empty line.
void AddPagedLine(Pager& pager, std::string_view text, int width) {
    const size_t step = static_cast<size_t>(std::max(width, 1));
    while (text.size() > step) {
        pager.lines.emplace_back(text.substr(0, step));
        text.remove_prefix(step);
    }
    pager.lines.emplace_back(text);
}

void StartPager(Board& board, int firstPage, int nextPage, int delayMs) {
    Start(board, firstPage, nextPage, delayMs);
}

void StartWalkingPager(Board& board, int page) {
    board.pager.walks = true;
    Start(board, page, page, 0);
}

}  // namespace simulator
