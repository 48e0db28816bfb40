// The program in memory: plain lines, as they were received, without line ends.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simulator {
struct Board;

// A longer line can't be stored.
constexpr size_t kMaximumLine = 254;

struct ProgramMemory {
    std::vector<std::string> lines;
};

// Replaces the program by `text`. CR, LF and CR LF end a line; a trailing
// empty line is not stored, other characters below 32 are dropped, a tab is a blank.
// nullptr, or the words of an error; the lines before the fault are stored then.
const char* StoreProgram(Board& board, std::string_view text);

// Line `index`, counted from 0; empty for one that isn't there.
const std::string& ProgramLine(const Board& board, int index);

// All lines, each ended by `lineEnd`.
std::string JoinProgram(const Board& board, const char* lineEnd);

// What "Saved N bytes" tells: the size as tokens and the firmware's scan count.
size_t TokenisedSize(const Board& board);

}  // namespace simulator
