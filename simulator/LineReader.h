// Reads one line for INPUT and for the PIN question: plain editing with "\b \b".
#pragma once

#include <string>

namespace simulator {
struct Board;

constexpr size_t kMaximumTyped = 254;  // characters of one answer

struct LineReader {
    std::string line;
    void (*done)(Board& board, const std::string& line) = nullptr;
    bool afterCr = false;  // an LF behind a CR may be skipped
};

// The console belongs to the reader until Enter; then `done` gets the line.
void ReadLine(Board& board, void (*done)(Board& board, const std::string& line));

}  // namespace simulator
