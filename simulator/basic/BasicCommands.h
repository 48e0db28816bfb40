// The command words, one row for each.
#pragma once

#include <string>
#include <string_view>

#include "simulator/BoardFacts.h"

namespace simulator {
struct Board;

struct BasicCommand {
    const char* word;                         // as LIST shows it
    void (*run)(Board& board);                // the cursor stands behind the word
    bool openEnd;                             // another statement may follow with no ":" between
    bool (*exists)(const BoardFacts& facts);  // nullptr: on every board
};

// nullptr if this board has no such command.
const BasicCommand* FindCommand(const BoardFacts& facts, std::string_view word);

// A command or function of the real boards that this one does without.
bool IsAbsentWord(std::string_view word);

// `line` as LIST shows it: known words in their own spelling, strings and comments as
// they stand.
std::string RecasedLine(std::string_view line);

// Bytes of the line as tokens.
size_t TokenisedLineSize(std::string_view line);

// Lines of the program by their labels and line numbers.
void BuildLabels(Board& board);

}  // namespace simulator
