// Commands on the board itself: NEW, RUN, OPTION and the restart.
#pragma once

namespace simulator {
struct Board;

void RunNew(Board& board);
void RunRun(Board& board);
void RunCpu(Board& board);
void RunOption(Board& board);

}  // namespace simulator
