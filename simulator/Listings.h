// What LIST, FILES and LS show, page by page.
#pragma once

#include <string>
#include <vector>

namespace simulator {
struct Board;

// Shows program lines the way LIST does.
void ListLines(Board& board, const std::vector<std::string>& lines, bool stops);

// The commands; the cursor stands behind the word.
void RunList(Board& board);
void RunFiles(Board& board);

}  // namespace simulator
