// A line that was entered at the prompt: its short forms, then the board's language.
#pragma once

#include <string>

namespace simulator {

struct Board;

void ExecuteCommandLine(Board& board, const std::string& line);

}  // namespace simulator
