// The plain command line of the row "command": a handful of words known from shells, on
// the same drive.
#pragma once

#include <string>

namespace simulator {

struct Board;

// Runs one line; the prompt follows.
void RunShellLine(Board& board, const std::string& line);

}  // namespace simulator
