// The flash slots of the PicoMite family: whole programs behind numbers.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace simulator {
struct Board;

struct FlashSlot {
    bool used = false;
    std::vector<std::string> lines;
};

using FlashSlots = std::array<FlashSlot, 3>;

void RunFlash(Board& board);

}  // namespace simulator
