// Small rules of ASCII text that the whole simulated board shares. Bytes above 127 are
// letters of no case.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace simulator {

char UpperChar(char c);
std::string UpperText(std::string_view text);
std::string LowerText(std::string_view text);

// Blanks and tabs off both ends.
std::string_view TrimBlanks(std::string_view text);

// Equality and prefix without regard to case.
bool SameWord(std::string_view a, std::string_view b);
bool StartsWithWord(std::string_view text, std::string_view start);

// A decimal integer and nothing else; false leaves *value alone.
bool ReadInteger(std::string_view text, int64_t* value);

// printf into a text of at most 1023 bytes.
std::string BoardFormat(const char* format, ...) __attribute__((format(printf, 1, 2)));

}  // namespace simulator
