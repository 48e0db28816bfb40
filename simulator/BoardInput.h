// The board's way in: a ring for what comes while the board is busy.
#pragma once

#include <deque>
#include <string_view>

namespace simulator {

struct Board;

struct BoardInput {
    std::deque<unsigned char> ring;  // at most facts.line.ring bytes
};

// One byte from the line. Byte 3 is acted on here, before whatever waits.
void AcceptByte(Board& board, unsigned char c);

// Hands what waits to the current activity, as long as it reads.
void PumpInput(Board& board);

}  // namespace simulator
