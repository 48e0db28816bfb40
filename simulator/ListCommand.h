// LIST: the program, or a file, with or without stops.
#pragma once

#include <string>
#include <vector>

namespace simulator {
struct Board;

void RunList(Board& board);

// Shows program lines the way LIST does.
void ListLines(Board& board, const std::vector<std::string>& lines, bool stops);

}  // namespace simulator
