// Reading BASIC text: the cursor that all statements and expressions share.
#pragma once

#include <string>
#include <string_view>

#include "simulator/basic/BasicMachine.h"

namespace simulator {

// The line under the cursor.
const std::string& CurrentLine(const Board& board);

// The next character behind blanks, 0 at the line's end. The cursor moves to it.
char PeekChar(Board& board);

// Steps over `c` if it is the next character.
bool TakeChar(Board& board, char c);

// A name with its dots and type mark, in upper case; empty if none stands here.
std::string TakeWord(Board& board);

// Steps over the word if it stands here as a whole.
bool TakeKeyword(Board& board, const char* word);

// Steps over `c` or fails with the firmware's words.
bool Expect(Board& board, char c);

// Is the statement over: line end, ":", a comment, or ELSE?
bool AtStatementEnd(Board& board);

// Where the comment starts, npos for none; and where the statement at `at` ends.
size_t CommentStart(std::string_view line);
size_t StatementEnd(std::string_view line, size_t at);

// The number or the label that a line of the program begins with; empty for none.
std::string_view LabelOf(const Board& board, std::string_view line);

// The cursor to the end of its line.
void SkipLine(Board& board);

// The cursor to the next line of the program; false at its end and in a typed line.
bool GoToNextLine(Board& board);

// The length of the name at `at`, with dots and type mark; 0 for none.
size_t WordLength(std::string_view line, size_t at);

}  // namespace simulator
