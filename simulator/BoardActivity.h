// What the board is doing: one activity at a time owns the console. It says who takes
// the bytes that come, what happens when its time has come, and what Ctrl-C does. What comes
// while the board is busy waits in its ring.
#pragma once

#include <cstdint>

namespace simulator {
struct Board;

struct BoardActivity {
    // Takes one byte; nullptr: what comes waits in the ring.
    void (*byte)(Board& board, unsigned char c);
    // board.wakeAt has come; nullptr: it has no times.
    void (*time)(Board& board);
    // Byte 3 at its reception; nullptr: it is data like any other.
    void (*stop)(Board& board);
    bool deaf = false;      // what comes is lost
    bool protocol = false;  // XMODEM's frames: all eight bits count
};

// Makes it the current one, with no time set.
void StartActivity(Board& board, const BoardActivity& activity);

// The current activity's time comes in `ms` from now, or never with kNeverMs; earlier calls
// are forgotten.
void WakeIn(Board& board, int64_t ms);

// Stays busy for `ms`, then calls `then`. A deaf wait loses what is sent meanwhile, as
// flash work with the interrupts off does.
void BusyThen(Board& board, int64_t ms, void (*then)(Board& board), bool deaf = false);

// One byte from the line. Byte 3 is acted on here, before whatever waits.
void AcceptByte(Board& board, unsigned char c);

// Hands what waits to the current activity, as long as it reads.
void PumpInput(Board& board);

}  // namespace simulator
