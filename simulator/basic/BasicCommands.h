// The command words, one row for each. Each file of commands brings its own rows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/BoardFacts.h"

namespace simulator {
struct Board;

struct BasicCommand {
    const char* word;                                   // as LIST shows it
    void (*run)(Board& board);                          // the cursor stands behind the word
    bool openEnd = false;                               // no ":" need stand before what follows
    bool (*exists)(const BoardFacts& facts) = nullptr;  // nullptr: on every board
};

using CommandRows = std::vector<BasicCommand>;
const CommandRows& BoardCommands();
const CommandRows& FileCommands();
const CommandRows& FlowCommands();
const CommandRows& PlainCommands();

// nullptr if this board has no such command.
const BasicCommand* FindCommand(const BoardFacts& facts, std::string_view word);

// Fails by name, and gives true, for a word of the real boards that this one does without.
bool RefuseAbsent(Board& board, const std::string& word);

// `line` as LIST shows it: known words in their own spelling, strings and comments as
// they stand.
std::string RecasedLine(std::string_view line);

// Bytes of the line as tokens.
size_t TokenisedLineSize(std::string_view line);

}  // namespace simulator
