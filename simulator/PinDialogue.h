// The question for the PIN of a locked console.
#pragma once

namespace simulator {

struct Board;

void AskForPin(Board& board);

}  // namespace simulator
