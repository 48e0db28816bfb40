// SUB: procedures with parameters by value and variables of their own.
#pragma once

#include <string>

namespace simulator {

struct Board;

// Is there a SUB of that name, in upper case?
bool IsSub(const Board& board, const std::string& name);

// Calls it; its arguments stand at the cursor.
void CallSub(Board& board, const std::string& name);

// END SUB and EXIT SUB.
void LeaveSub(Board& board);

// SUB in the way of the program: nothing inside runs.
void SkipSub(Board& board);

// LOCAL: the names become the SUB's own.
void RunLocal(Board& board);

// Puts back what all open SUBs hide.
void UnwindSubs(Board& board);

}  // namespace simulator
