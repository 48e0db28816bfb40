#include "simulator/BoardOutput.h"

#include <algorithm>

#include "simulator/Board.h"

namespace simulator {

// What the board sends goes through the troubles of the line and into a queue of pieces with
// their times. A driver takes from it what the host has by now.

namespace {

// As the firmware counts: every character from the blank on is one column, also those of an
// escape sequence that a program prints. LF alone changes nothing.
void CountColumn(BoardOutput& out, std::string_view text) {
    for (const char c : text) {
        if (c == '\r') {
            out.column = 1;
        } else if (c == '\b') {
            out.column = std::max(1, out.column - 1);
        } else if (static_cast<unsigned char>(c) >= ' ') {
            ++out.column;
        }
    }
}

// One byte through the troubles of the line; false when it is lost.
bool SurvivesLine(Board& board, char* c) {
    const BoardFaults& faults = board.setup.faults;
    if (faults.lostOutPerMille > 0 && Draw(board, 1000) < faults.lostOutPerMille) return false;
    if (faults.garbagePerMille > 0 && Draw(board, 1000) < faults.garbagePerMille) {
        *c = static_cast<char>(Draw(board, 256));
    }
    ++board.out.sent;
    if (faults.cutAfterBytes > 0 && board.out.sent > faults.cutAfterBytes) board.out.cut = true;
    return !board.out.cut;
}

// Nobody would receive it: it is dropped, not queued.
bool LineIsDead(const Board& board) {
    return board.setup.faults.silent || board.out.cut || !board.listening ||
           board.awayUntil > board.now || board.out.queued >= kOutputLimit;
}

// Into the queue, with the time at which the host will have it.
void Transmit(Board& board, std::string_view bytes) {
    BoardOutput& out = board.out;
    if (LineIsDead(board)) return;
    std::string arriving;
    for (char c : bytes) {
        if (SurvivesLine(board, &c)) arriving += c;
    }
    if (arriving.empty()) return;
    const int64_t readyAt = board.now + board.setup.faults.delayMs;
    if (out.queue.empty() || out.queue.back().readyAt != readyAt)
        out.queue.push_back({readyAt, {}});
    out.queue.back().bytes += arriving;
    out.queued += arriving.size();
}

}  // namespace

void PutRaw(Board& board, std::string_view bytes) {
    Transmit(board, bytes);
}

void Put(Board& board, std::string_view text) {
    CountColumn(board.out, text);
    Transmit(board, text);
}

void Echo(Board& board, std::string_view text) {
    CountColumn(board.out, text);
    if (!board.setup.faults.noEcho) Transmit(board, text);
}

void NewLine(Board& board) {
    Put(board, "\r\n");
}

// The prompt and messages always start at column 1.
void FreshLine(Board& board) {
    if (board.out.column != 1) NewLine(board);
}

bool OutputIsFull(const Board& board) {
    return board.out.queued >= kOutputHighWater;
}

std::string TakeReady(Board& board) {
    BoardOutput& out = board.out;
    std::string ready;
    for (; !out.queue.empty() && out.queue.front().readyAt <= board.now; out.queue.pop_front()) {
        ready += out.queue.front().bytes;
    }
    out.queued -= ready.size();
    return ready;
}

int64_t NextReadyMs(const Board& board) {
    return board.out.queue.empty() ? kNeverMs : board.out.queue.front().readyAt;
}

}  // namespace simulator
