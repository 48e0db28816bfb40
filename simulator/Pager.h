// Long output with a stop after each page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simulator {
struct Board;

struct Pager {
    std::vector<std::string> lines;  // as they stand on the screen
    std::string summary;             // printed behind the lines, with no line end
    std::string summaryTail;         // printed after a gap, with the line end
    size_t next = 0;                 // line
    int left = 0;                    // lines that still fit on the page
    int pageLines = 0;               // of all pages but the first; 0: no stops
};

// Adds `text` to the lines, broken after each `width` characters.
void AddPagedLine(Pager& pager, std::string_view text, int width);

// Prints everything; the command that started it goes on afterwards. The first page
// holds `firstPage` lines. Starts after `delayMs`.
void StartPager(Board& board, int firstPage, int nextPage, int delayMs);

}  // namespace simulator
