#include "simulator/BoardText.h"

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
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (UpperChar(a[i]) != UpperChar(b[i])) return false;
    }
    return true;
}

bool StartsWithWord(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && SameWord(text.substr(0, start.size()), start);
}

// There is always one field at least, if an empty one.
std::vector<std::string> SplitFields(std::string_view text, char separator, size_t maximum) {
    std::vector<std::string> fields;
    while (fields.size() + 1 < maximum) {
        const size_t end = text.find(separator);
        if (end == std::string_view::npos) break;
        fields.emplace_back(TrimBlanks(text.substr(0, end)));
        text.remove_prefix(end + 1);
    }
    fields.emplace_back(TrimBlanks(text));
    return fields;
}

// Fifteen digits can't overflow.
bool ReadInteger(std::string_view text, int64_t* value) {
    constexpr size_t kMaximumDigits = 15;
    text = TrimBlanks(text);
    const bool negative = !text.empty() && text[0] == '-';
    if (negative) text.remove_prefix(1);
    if (text.empty() || text.size() > kMaximumDigits) return false;
    int64_t sum = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return false;
        sum = sum * 10 + (c - '0');
    }
    *value = negative ? -sum : sum;
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

// Goes back to the last "*" only, which is enough and bounds the time.
bool FitsPattern(std::string_view name, std::string_view pattern) {
    size_t n = 0, p = 0;
    size_t starPattern = std::string_view::npos, starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starPattern = p++;
            starName = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' || UpperChar(pattern[p]) == UpperChar(name[n]))) {
            ++p, ++n;
        } else if (starPattern != std::string_view::npos) {
            p = starPattern + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

}  // namespace simulator
