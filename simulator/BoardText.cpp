#include "simulator/BoardText.h"

#include <algorithm>
#include <charconv>
#include <cstdarg>
#include <cstdio>

namespace simulator {

char UpperChar(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string UpperText(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = UpperChar(c);
    return result;
}

std::string LowerText(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

std::string_view TrimBlanks(std::string_view text) {
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

bool SameWord(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return UpperChar(x) == UpperChar(y); });
}

bool StartsWithWord(std::string_view text, std::string_view start) {
    return SameWord(text.substr(0, start.size()), start);
}

bool ReadInteger(std::string_view text, int64_t* value) {
    text = TrimBlanks(text);
    int64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) return false;
    *value = number;
    return true;
}

std::string BoardFormat(const char* format, ...) {
    char buffer[1024];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    return buffer;
}

}  // namespace simulator
