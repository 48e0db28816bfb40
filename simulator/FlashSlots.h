// The flash slots of the PicoMite family: whole programs behind numbers.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace simulator {
struct Board;

constexpr int kFlashSlots = 3;

struct FlashSlot {
    bool used = false;
    std::vector<std::string> lines;
};

struct FlashSlots {
    std::array<FlashSlot, kFlashSlots> slots;
};

void RunFlash(Board& board);

}  // namespace simulator
