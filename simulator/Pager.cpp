#include "simulator/Pager.h"

#include "simulator/Board.h"

// The lines of a listing are made before the first is printed, within the bounds of the drive
// and of program memory.

namespace simulator {
namespace {

constexpr char kAnyKey[] = "PRESS ANY KEY ...";
constexpr int64_t kSummaryGapMs = 40;

void TakeByte(Board& board, unsigned char c);
void PrintLines(Board& board);
void PrintTail(Board& board);

const BoardActivity kPrinting = {nullptr, PrintLines, ReturnToPromptLoudly};
const BoardActivity kWaiting = {TakeByte, nullptr, ReturnToPromptLoudly};
const BoardActivity kGap = {nullptr, PrintTail, ReturnToPromptLoudly};

void Ask(Board& board) {
    Put(board, kAnyKey);
    StartActivity(board, kWaiting);
}

// The free bytes take the firmware a walk through the whole drive, so the line has a gap.
void PrintSummary(Board& board) {
    Put(board, board.pager.summary);
    if (board.pager.summaryTail.empty()) return PrintTail(board);
    StartActivity(board, kGap);
    WakeIn(board, kSummaryGapMs);
}

// Whatever runs goes on: the listing may have been a statement of a program.
void PrintTail(Board& board) {
    Put(board, board.pager.summaryTail);
    board.pager = Pager();
    ResumeBasic(board);
}

// A page is full before the next line, or before the summary.
void PrintLines(Board& board) {
    Pager& pager = board.pager;
    const bool stops = pager.pageLines > 0;
    for (; pager.next < pager.lines.size(); --pager.left) {
        if (OutputIsFull(board)) return WakeIn(board, kFullOutputWaitMs);
        if (stops && pager.left == 0) return Ask(board);
        Put(board, pager.lines[pager.next++]);
        NewLine(board);
    }
    if (stops && pager.left <= 0 && !pager.summary.empty()) return Ask(board);
    PrintSummary(board);
}

// One raw byte goes on, whatever it is. The next line is printed over the question.
void TakeByte(Board& board, unsigned char) {
    Put(board, "\r" + std::string(sizeof kAnyKey - 1, ' ') + "\r");
    board.pager.left = board.pager.pageLines;
    StartActivity(board, kPrinting);
    WakeIn(board, 0);
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
