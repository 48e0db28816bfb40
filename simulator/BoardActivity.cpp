#include "simulator/BoardActivity.h"

#include "simulator/Board.h"

namespace {

void BusyIsOver(Board& board) {
    board.afterBusy(board);
}

const BoardActivity kBusy = {nullptr, BusyIsOver, nullptr};
const BoardActivity kDeafBusy = {nullptr, BusyIsOver, nullptr, true};

}  // namespace

void StartActivity(Board& board, const BoardActivity& activity) {
    board.activity = &activity;
    board.wakeAt = kNeverMs;
}

void WakeIn(Board& board, int64_t ms) {
    board.wakeAt = board.now + ms;
}

void WakeNever(Board& board) {
    board.wakeAt = kNeverMs;
}

void BusyThen(Board& board, int64_t ms, void (*then)(Board& board), bool deaf) {
    if (ms <= 0) {
        then(board);
        return;
    }
    if (deaf) board.in.ring.clear();
    StartActivity(board, deaf ? kDeafBusy : kBusy);
    board.afterBusy = then;
    WakeIn(board, ms);
}
