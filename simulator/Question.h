// A question that one key answers.
#pragma once

#include <string>

namespace simulator {

struct Board;

// Prints it and waits for a key, which is echoed in upper case. `done` learns whether it
// was Y.
void AskYesNo(Board& board, const std::string& question, void (*done)(Board& board, bool yes));

}  // namespace simulator
