// The question for the PIN of a locked console.
#pragma once

struct Board;

void AskForPin(Board& board);
