// The command line at the prompt: echo, editing, history, function keys.
#pragma once

#include <deque>
#include <string>

#include "simulator/KeyDecoder.h"

namespace simulator {

struct Board;

constexpr size_t kMaximumCommandLine = 254;
constexpr size_t kMaximumHistory = 20;

struct LineEditor {
    std::string line;
    size_t cursor = 0;  // 0: before the first character
    bool overwrite = false;
    std::deque<std::string> history;  // the latest last
    size_t historyAt = 0;             // history.size(): the line being typed
    KeyDecoder keys;
};

// The prompt stands; a command may be typed.
void StartLineEditor(Board& board);

}  // namespace simulator
