#include "plotter/PlotLine.h"

#include <QString>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();
const char kSeparators[] = ",;\t";
const char kBlanks[] = " \t";

bool IsSeparator(char c) {
    return c == ',' || c == ';' || c == '\t';
}

// By ASCII alone: the desktop's locale is nothing to the board.
bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || (c & 0x80);
}

void SkipAny(std::string_view& text, const char* characters) {
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

std::string_view Trimmed(std::string_view text) {
    SkipAny(text, kBlanks);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

// The number that the text begins with and that a blank, a separator or the end follows.
bool TakeNumber(std::string_view& text, double& value) {
    std::string_view word = text.substr(0, text.find_first_of(" ,;\t"));
    const size_t length = word.size();
    if (length > 1 && word[0] == '+' && word[1] != '-') word.remove_prefix(1);
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size()) return false;
    if (!std::isfinite(value)) value = kMissing;
    text.remove_prefix(length);
    return true;
}

bool ReadNumbers(std::string_view text, std::vector<double>& values) {
    bool open = false;  // a separator wants something behind it
    for (SkipAny(text, " "); !text.empty() || open; SkipAny(text, " ")) {
        double value = kMissing;
        if (!text.empty() && !IsSeparator(text[0]) && !TakeNumber(text, value)) return false;
        values.push_back(value);
        SkipAny(text, " ");
        open = !text.empty() && IsSeparator(text[0]);
        if (open) text.remove_prefix(1);
    }
    return std::any_of(values.begin(), values.end(), [](double v) { return !std::isnan(v); });
}

bool ReadNamed(std::string_view text, PlotLine& line) {
    for (SkipAny(text, " ,;\t"); !text.empty(); SkipAny(text, " ,;\t")) {
        const size_t mark = text.find_first_of("=:,;\t");
        if (mark == std::string_view::npos || IsSeparator(text[mark])) return false;
        const std::string_view name = Trimmed(text.substr(0, mark));
        if (name.empty() || name.size() > kLongestName || !IsLetter(name[0])) return false;
        text.remove_prefix(mark + 1);
        SkipAny(text, kBlanks);
        double value = 0;
        if (!TakeNumber(text, value)) return false;
        line.names.emplace_back(name);
        line.values.push_back(value);
    }
    return !line.names.empty();
}

// A word up to a separator. In quotes it may hold separators, and two quotes are one.
std::string TakeWord(std::string_view& text, const char* separators) {
    const std::string_view ends = separators;
    std::string word;
    bool quoted = false;
    while (!text.empty() && (quoted || ends.find(text[0]) == std::string_view::npos)) {
        const bool two = quoted && text.substr(0, 2) == "\"\"";
        if (text[0] != '"' || two) word += text[0];
        if (text[0] == '"' && !two) quoted = !quoted;
        text.remove_prefix(two ? 2 : 1);
    }
    return std::string(Trimmed(word));
}

bool ReadWords(std::string_view text, std::vector<std::string>& names) {
    text = Trimmed(text);
    const bool byBlanks = text.find_first_of(kSeparators) == std::string_view::npos;
    while (!text.empty()) {
        names.push_back(TakeWord(text, byBlanks ? " " : kSeparators));
        const std::string& name = names.back();
        if (name.empty() || name.size() > kLongestName || !IsLetter(name[0])) return false;
        if (!text.empty()) text.remove_prefix(1);
        if (byBlanks) SkipAny(text, " ");
    }
    return !names.empty();
}

bool IsUtf8(std::string_view text) {
    const QByteArray bytes(text.data(), static_cast<int>(text.size()));
    return QString::fromUtf8(bytes).toUtf8() == bytes;
}

bool Clear(PlotLine& line) {
    line.names.clear();
    line.values.clear();
    return false;
}

}  // namespace

// Names are text: noise on a serial line gives none.
PlotLine ReadPlotLine(std::string_view text) {
    PlotLine line;
    if (ReadNumbers(text, line.values) || Clear(line)) {
        line.kind = LineKind::kNumbers;
    } else if (!IsUtf8(text)) {
        line.kind = LineKind::kOther;
    } else if (ReadNamed(text, line) || Clear(line)) {
        line.kind = LineKind::kNamed;
    } else if (ReadWords(text, line.names) || Clear(line)) {
        line.kind = LineKind::kWords;
    }
    return line;
}
