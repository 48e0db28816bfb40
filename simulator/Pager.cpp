#include "simulator/Pager.h"

#include <algorithm>

#include "simulator/Board.h"

// The lines of a listing are made before the first is printed, within the bounds of the drive
// and of program memory.

namespace simulator {
namespace {

constexpr char kAnyKey[] = "PRESS ANY KEY ...";
constexpr char kNextKey[] = "UP=prev  ANY KEY=next ...";
constexpr char kQuitKey[] = "UP=prev  ANY KEY=quit ...";
constexpr size_t kPlainErase = 17;
constexpr size_t kWalkErase = 30;
constexpr int64_t kFullOutputWaitMs = 5;

void TakeByte(Board& board, unsigned char c);
void HoldIsOver(Board& board);
void PrintLines(Board& board);
void PrintTail(Board& board);

const BoardActivity kPrinting = {nullptr, PrintLines, ReturnToPromptLoudly};
const BoardActivity kWaiting = {TakeByte, HoldIsOver, ReturnToPromptLoudly};
const BoardActivity kGap = {nullptr, PrintTail, ReturnToPromptLoudly};

bool AllIsShown(const Pager& pager) {
    return pager.next == pager.lines.size();
}

// Whatever runs goes on: the listing may have been a statement of a program.
void EndPager(Board& board) {
    board.pager = Pager();
    ResumeBasic(board);
}

// The first page of either pager asks in the same words.
void Ask(Board& board) {
    const Pager& pager = board.pager;
    const bool first = !pager.walks || pager.pageStart == 0;
    Put(board, first ? kAnyKey : AllIsShown(pager) ? kQuitKey : kNextKey);
    StartActivity(board, kWaiting);
}

// The free bytes take the firmware a walk through the whole drive, so the line has a gap.
void PrintSummary(Board& board) {
    Put(board, board.pager.summary);
    if (board.pager.summaryTail.empty()) return EndPager(board);
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
    for (; !AllIsShown(pager); --pager.left) {
        if (OutputIsFull(board)) return WakeIn(board, kFullOutputWaitMs);
        if (stops && pager.left == 0) return Ask(board);
        Put(board, pager.lines[pager.next++]);
        NewLine(board);
    }
    const bool several = pager.lines.size() > static_cast<size_t>(pager.pageLines);
    const bool full = stops && pager.left <= 0 && !pager.summary.empty();
    if (pager.walks ? several : full) return Ask(board);
    PrintSummary(board);
}

// One raw byte goes on, whatever it is. In a walking pager up goes back a page, and a key on
// the last page ends the listing.
void TakeKey(Board& board, unsigned char key) {
    Pager& pager = board.pager;
    // The next line is printed over the question.
    Put(board, "\r" + std::string(pager.walks ? kWalkErase : kPlainErase, ' ') + "\r");
    if (pager.walks && key != kKeyUp && AllIsShown(pager)) return EndPager(board);
    if (pager.walks && key == kKeyUp) {
        pager.next = pager.pageStart - std::min(pager.pageStart, size_t(pager.pageLines));
    }
    pager.pageStart = pager.next;
    pager.left = pager.pageLines;
    StartActivity(board, kPrinting);
    WakeIn(board, 0);
}

// A walking pager knows keys, so an arrow is one answer and not three.
void TakeByte(Board& board, unsigned char c) {
    std::string keys(board.pager.walks ? 0 : 1, static_cast<char>(c));
    if (board.pager.walks) DecodeKeyByte(board.pager.keys, c, &keys);
    if (keys.empty()) return WakeIn(board, kEscapeHoldMs);
    TakeKey(board, static_cast<unsigned char>(keys[0]));
}

void HoldIsOver(Board& board) {
    std::string keys;
    DecodeKeyTimeout(board.pager.keys, &keys);
    TakeKey(board, static_cast<unsigned char>(keys[0]));
}

}  // namespace

// An empty text is an empty line.
void AddPagedLine(Pager& pager, std::string_view text, int width) {
    const size_t step = static_cast<size_t>(width);
    while (text.size() > step) {
        pager.lines.emplace_back(text.substr(0, step));
        text.remove_prefix(step);
    }
    pager.lines.emplace_back(text);
}

void StartPager(Board& board, int firstPage, int nextPage, int delayMs) {
    board.pager.left = firstPage;
    board.pager.pageLines = nextPage;
    StartActivity(board, kPrinting);
    WakeIn(board, delayMs);
}

}  // namespace simulator
