#include "simulator/BoardActivity.h"

#include <utility>

#include "simulator/Board.h"

namespace simulator {
namespace {

constexpr unsigned char kCtrlC = 3;

// Over USB the host waits; one that doesn't loses what it sends too much.
void Store(Board& board, unsigned char c) {
    if (board.ring.size() >= board.facts.line.ring) {
        if (!board.facts.line.dropsOldest) return;
        board.ring.pop_front();
    }
    board.ring.push_back(c);
}

// A Ctrl-C that came meanwhile stops the program that would go on now.
void BusyIsOver(Board& board) {
    board.afterBusy(board);
    if (std::exchange(board.stopAsked, false) && BasicIsRunning(board)) ReturnToPromptLoudly(board);
}

// The work itself goes on.
void StopLater(Board& board) {
    board.stopAsked = true;
}

const BoardActivity kBusy = {nullptr, BusyIsOver, StopLater};
const BoardActivity kDeafBusy = {nullptr, BusyIsOver, nullptr, true};

}  // namespace

void StartActivity(Board& board, const BoardActivity& activity) {
    board.activity = &activity;
    board.wakeAt = kNeverMs;
}

void WakeIn(Board& board, int64_t ms) {
    board.wakeAt = ms == kNeverMs ? kNeverMs : board.now + ms;
}

// Work of no time is done at once, so that its follow-up stands behind it in every case.
void BusyThen(Board& board, int64_t ms, void (*then)(Board& board), bool deaf) {
    if (ms <= 0) return then(board);
    if (deaf) board.ring.clear();
    StartActivity(board, deaf ? kDeafBusy : kBusy);
    board.afterBusy = then;
    board.stopAsked = false;
    WakeIn(board, ms);
}

// The order matters: what the line loses never reaches the board, a deaf board hears not even
// Ctrl-C, and Ctrl-C throws away what waits before it stops anything.
void AcceptByte(Board& board, unsigned char c) {
    const BoardFaults& faults = board.setup.faults;
    if (faults.lostInPerMille > 0 && Draw(board, 1000) < faults.lostInPerMille) return;
    if (board.activity->deaf) return;
    if (board.facts.line.sevenBits && !board.activity->protocol) c &= 0x7f;
    if (c == kCtrlC && board.activity->stop) {
        board.ring.clear();
        board.activity->stop(board);
        return;
    }
    Store(board, c);
}

// One byte at a time, because each may hand the console to another activity.
void PumpInput(Board& board) {
    while (board.activity->byte && !board.ring.empty()) {
        const unsigned char c = board.ring.front();
        board.ring.pop_front();
        board.activity->byte(board, c);
    }
}

}  // namespace simulator
