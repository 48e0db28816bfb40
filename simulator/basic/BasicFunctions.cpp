#include "simulator/basic/BasicFunctions.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

#include "simulator/Board.h"

// Arguments are read and checked by the letters of a row before the function is called.

namespace simulator {
namespace {

using Arguments = std::vector<BasicValue>;

// A count of characters; negative and huge ones fail.
size_t Count(Board& board, const BasicValue& value) {
    const double count = value.number;
    if (count >= 0 && count <= kMaximumString) return static_cast<size_t>(count);
    Fail(board, BoardFormat("%.0f is invalid (valid is 0 to %zu)", count, kMaximumString));
    return 0;
}

BasicValue SquareRoot(Board& board, const Arguments& a) {
    if (a[0].number < 0) return Fail(board, "Negative argument"), NumberValue(0);
    return NumberValue(std::sqrt(a[0].number));
}

// From 0 to below 1. The board's own generator: the same seed, the same numbers.
BasicValue RandomNumber(Board& board, const Arguments&) {
    constexpr int kSteps = 1 << 24;
    return NumberValue(static_cast<double>(Draw(board, kSteps)) / kSteps);
}

BasicValue Ascii(Board&, const Arguments& a) {
    return NumberValue(a[0].text.empty() ? 0 : static_cast<unsigned char>(a[0].text[0]));
}

// Bytes above 127 pass as they are; a terminal may take them for UTF-8.
BasicValue Character(Board& board, const Arguments& a) {
    return TextValue(std::string(1, static_cast<char>(Count(board, a[0]))));
}

// A count beyond the string's length gives the whole string.
BasicValue Right(Board& board, const Arguments& a) {
    const size_t size = a[0].text.size();
    return TextValue(a[0].text.substr(size - std::min(Count(board, a[1]), size)));
}

// Positions count from 1. A start behind the end gives an empty string.
BasicValue Middle(Board& board, const Arguments& a) {
    const size_t start = Count(board, a[1]);
    if (start == 0) Fail(board, "0 is invalid (valid is 1 to 255)");
    if (start == 0 || start > a[0].text.size()) return TextValue("");
    return TextValue(
        a[0].text.substr(start - 1, a.size() > 2 ? Count(board, a[2]) : kMaximumString));
}

// Both INSTR(text, part) and INSTR(start, text, part) are in use.
BasicValue Position(Board& board, const Arguments& a) {
    const size_t first = a[0].isText ? 0 : 1;
    if (a.size() < first + 2 || !a[first].isText || !a[first + 1].isText) {
        return Fail(board, "Argument count"), NumberValue(0);
    }
    const double from = first == 0 ? 1 : std::clamp(a[0].number, 1.0, 256.0);
    const size_t found = a[first].text.find(a[first + 1].text, static_cast<size_t>(from) - 1);
    return NumberValue(found == std::string::npos ? 0 : static_cast<double>(found + 1));
}

// STR$(number [, places before the point [, places behind it [, padding]]]).
BasicValue ToText(Board& board, const Arguments& a) {
    constexpr double kMaximumDecimals = 15;
    std::string text = NumberText(a[0].number);
    if (a.size() > 2) {
        const double decimals = std::clamp(a[2].number, 0.0, kMaximumDecimals);
        text = BoardFormat("%.*f", static_cast<int>(decimals), a[0].number);
    }
    const size_t point = std::min(text.find('.'), text.size());
    const size_t width = a.size() > 1 ? Count(board, a[1]) : 0;
    const char padding = a.size() > 3 && !a[3].text.empty() ? a[3].text[0] : ' ';
    if (width > point) text.insert(0, width - point, padding);
    return TextValue(text.substr(0, kMaximumString));
}

// strtod would read names such as "inf" and hexadecimal as well.
BasicValue ToNumber(Board&, const Arguments& a) {
    const size_t end = a[0].text.find_first_not_of(" +-.0123456789eE");
    const double value = std::strtod(a[0].text.substr(0, end).c_str(), nullptr);
    return NumberValue(std::isfinite(value) ? value : 0);
}

// The second argument is a character code or a string, of which the first character counts.
BasicValue Repeat(Board& board, const Arguments& a) {
    const std::string text = a[1].isText ? a[1].text : std::string(1, char(Count(board, a[1])));
    return TextValue(std::string(Count(board, a[0]), text.empty() ? ' ' : text[0]));
}

// The next byte that waits.
BasicValue NextKey(Board& board, const Arguments&) {
    auto& ring = board.in.ring;
    if (ring.empty()) return TextValue("");
    const char key = static_cast<char>(ring.front());
    ring.pop_front();
    return TextValue(std::string(1, key));
}

// Milliseconds of board time since RUN or since TIMER was set.
BasicValue Timer(Board& board, const Arguments&) {
    return NumberValue(static_cast<double>(board.now - board.basic.timerStart));
}

const BasicFunction kFunctions[] = {
    {"Abs", "n", [](Board&, const Arguments& a) { return NumberValue(std::fabs(a[0].number)); }},
    {"Asc", "t", Ascii},
    {"Chr$", "n", Character},
    {"Cos", "n", [](Board&, const Arguments& a) { return NumberValue(std::cos(a[0].number)); }},
    {"Date$", "", [](Board& board, const Arguments&) { return TextValue(BoardDate(board)); }},
    {"Inkey$", "", NextKey},
    {"Instr", "**T", Position},
    {"Int", "n", [](Board&, const Arguments& a) { return NumberValue(std::floor(a[0].number)); }},
    {"Left$", "tn",
     [](Board& board, const Arguments& a) {
         return TextValue(a[0].text.substr(0, Count(board, a[1])));
     }},
    {"Len", "t",
     [](Board&, const Arguments& a) { return NumberValue(static_cast<double>(a[0].text.size())); }},
    {"Mid$", "tnN", Middle},
    {"MM.Device$", "",
     [](Board& board, const Arguments&) { return TextValue(board.facts.device); }},
    {"MM.Ver", "", [](Board& board, const Arguments&) { return NumberValue(board.facts.version); }},
    {"Rad", "n",
     [](Board&, const Arguments& a) { return NumberValue(a[0].number * std::acos(-1.0) / 180); }},
    {"Right$", "tn", Right},
    {"Rnd", "N", RandomNumber},
    {"Sin", "n", [](Board&, const Arguments& a) { return NumberValue(std::sin(a[0].number)); }},
    {"Space$", "n",
     [](Board& board, const Arguments& a) {
         return TextValue(std::string(Count(board, a[0]), ' '));
     }},
    {"Sqr", "n", SquareRoot},
    {"Str$", "nNNT", ToText},
    {"String$", "n*", Repeat},
    {"Time$", "", [](Board& board, const Arguments&) { return TextValue(BoardTime(board)); }},
    {"Timer", "", Timer},
    {"UCase$", "t", [](Board&, const Arguments& a) { return TextValue(UpperText(a[0].text)); }},
    {"Val", "t", ToNumber},
};

// A capital in a row's letters, or their end.
bool MayEnd(char kind) {
    return kind == '\0' || (kind >= 'A' && kind <= 'Z');
}

// Everything between the brackets; false with an error set.
bool TakeArguments(Board& board, const char* kinds, Arguments* arguments) {
    if (!TakeChar(board, '(')) return MayEnd(*kinds) || Fail(board, "Syntax");
    if (MayEnd(*kinds) && TakeChar(board, ')')) return true;
    do {
        const char kind = *kinds++;
        if (kind == '\0') return Fail(board, "Argument count");
        arguments->push_back(TakeValue(board));
        if (board.basic.failed) return false;
        const bool text = UpperChar(kind) == 'T';
        if (kind != '*' && arguments->back().isText != text) {
            return Fail(board, text ? "Expected a string" : "Expected a number");
        }
    } while (TakeChar(board, ','));
    return MayEnd(*kinds) ? Expect(board, ')') : Fail(board, "Argument count");
}

}  // namespace

const BasicFunction* FindFunction(std::string_view word) {
    const auto* row =
        std::find_if(std::begin(kFunctions), std::end(kFunctions),
                     [&](const BasicFunction& each) { return SameWord(each.word, word); });
    return row == std::end(kFunctions) ? nullptr : row;
}

// What the arguments are was checked before, so the functions read them blindly.
BasicValue CallFunction(Board& board, const BasicFunction& function) {
    Arguments arguments;
    if (!TakeArguments(board, function.arguments, &arguments)) return NumberValue(0);
    return function.call(board, arguments);
}

}  // namespace simulator
