#include "simulator/BoardActivity.h"

#include <utility>

#include "simulator/Board.h"

namespace simulator {

namespace {

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
    if (ms <= 0) {
        then(board);
        return;
    }
    if (deaf) board.in.ring.clear();
    StartActivity(board, deaf ? kDeafBusy : kBusy);
    board.afterBusy = then;
    board.stopAsked = false;
    WakeIn(board, ms);
}

}  // namespace simulator
