#include "simulator/BoardInput.h"

#include "simulator/Board.h"

namespace simulator {

namespace {

constexpr unsigned char kCtrlC = 3;

// Over USB the host waits; one that doesn't loses what it sends too much.
void Store(Board& board, unsigned char c) {
    BoardInput& in = board.in;
    if (in.ring.size() >= board.facts.line.ring) {
        if (!board.facts.line.dropsOldest) return;
        in.ring.pop_front();
    }
    in.ring.push_back(c);
}

}  // namespace

// The order matters: what the line loses never reaches the board, a deaf board hears not even
// Ctrl-C, and Ctrl-C throws away what waits before it stops anything.
void AcceptByte(Board& board, unsigned char c) {
    const BoardFaults& faults = board.setup.faults;
    if (faults.lostInPerMille > 0 && Draw(board, 1000) < faults.lostInPerMille) return;
    if (board.activity->deaf) return;
    if (board.facts.line.sevenBits && !board.activity->protocol) c &= 0x7f;
    if (c == kCtrlC && board.activity->stop) {
        board.in.ring.clear();
        board.activity->stop(board);
        return;
    }
    Store(board, c);
}

// One byte at a time, because each may hand the console to another activity.
void PumpInput(Board& board) {
    while (board.activity->byte && !board.in.ring.empty()) {
        const unsigned char c = board.in.ring.front();
        board.in.ring.pop_front();
        board.activity->byte(board, c);
    }
}

}  // namespace simulator
