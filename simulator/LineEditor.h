// Lines that are typed: commands at the prompt, with echo, rubbing out and function keys, and
// answers to INPUT and the PIN question, with plain editing.
#pragma once

#include <string>

#include "simulator/KeyDecoder.h"

namespace simulator {
struct Board;

constexpr size_t kMaximumTyped = 254;  // characters of one line

using LineTaker = void (*)(Board& board, const std::string& line);

struct LineEditor {
    std::string line;
    KeyDecoder keys;
    LineTaker done = nullptr;  // gets an answer; nullptr: a command is typed
    bool afterCr = false;      // of an answer: an LF behind it may be skipped
};

// The prompt stands; a command may be typed.
void StartLineEditor(Board& board);

// The console belongs to the reader until Enter; then `done` gets the line.
void ReadLine(Board& board, LineTaker done);

}  // namespace simulator
