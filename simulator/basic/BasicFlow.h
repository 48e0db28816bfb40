// The statements that decide what runs next.
#pragma once

namespace simulator {
struct Board;

void RunIf(Board& board);
void RunElse(Board& board);
void RunEndIf(Board& board);
void RunFor(Board& board);
void RunNext(Board& board);
void RunDo(Board& board);
void RunLoop(Board& board);
void RunGoto(Board& board);
void RunEnd(Board& board);

// The cursor to the next line of the program; false at its end and in a typed line.
bool GoToNextLine(Board& board);

}  // namespace simulator
