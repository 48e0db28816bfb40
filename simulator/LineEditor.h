// The command line at the prompt: echo, rubbing out, function keys, short forms.
#pragma once

#include <string>

#include "simulator/KeyDecoder.h"

namespace simulator {
struct Board;

constexpr size_t kMaximumCommandLine = 254;

struct LineEditor {
    std::string line;
    KeyDecoder keys;
};

// The prompt stands; a command may be typed.
void StartLineEditor(Board& board);

}  // namespace simulator
