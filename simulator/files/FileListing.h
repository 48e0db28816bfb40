// FILES and LS: the listing of a folder in each family's layout.
#pragma once

namespace simulator {
struct Board;

// The command; the cursor stands behind its word.
void RunFiles(Board& board);

}  // namespace simulator
