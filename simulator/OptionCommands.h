// OPTION: the board's settings and their list.
#pragma once

#include <map>
#include <string>

namespace simulator {

struct Board;

constexpr size_t kMaximumOptionText = 64;

struct BoardOptions {
    std::map<std::string, std::string> values;  // as OPTION LIST shows them, without OPTION
};

void RunOption(Board& board);

// The settings that a board of this kind comes with.
void PresetOptions(Board& board);

}  // namespace simulator
