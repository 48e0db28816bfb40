// Commands on the program in memory and on the board itself.
#pragma once

namespace simulator {

struct Board;

void RunNew(Board& board);
void RunRun(Board& board);
void RunClear(Board& board);
void RunCpu(Board& board);
void RunMemory(Board& board);

}  // namespace simulator
