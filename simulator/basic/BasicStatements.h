// The plain statements: output, input, variables, waiting.
#pragma once

namespace simulator {
struct Board;

void RunPrint(Board& board);
void RunLet(Board& board);
void RunDim(Board& board);
void RunInput(Board& board);
void RunPause(Board& board);
void RunCls(Board& board);
void RunTimer(Board& board);
void RunRandomize(Board& board);

}  // namespace simulator
