#include "simulator/basic/BasicFunctions.h"

#include <algorithm>
#include <cmath>
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

// Bytes above 127 pass as they are; a terminal may take them for UTF-8.
BasicValue Character(Board& board, const Arguments& a) {
    return TextValue(std::string(1, static_cast<char>(Count(board, a[0]))));
}

BasicValue Left(Board& board, const Arguments& a) {
    return TextValue(a[0].text.substr(0, Count(board, a[1])));
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

// 0 for a part that isn't there.
BasicValue Position(Board&, const Arguments& a) {
    const size_t found = a[0].text.find(a[1].text);
    return NumberValue(found == std::string::npos ? 0 : static_cast<double>(found + 1));
}

// STR$(number [, places before the point [, places behind it]]).
BasicValue ToText(Board& board, const Arguments& a) {
    const int decimals = a.size() > 2 ? static_cast<int>(Count(board, a[2])) : -1;
    std::string text =
        decimals < 0 ? NumberText(a[0].number) : BoardFormat("%.*f", decimals, a[0].number);
    const size_t point = std::min(text.find('.'), text.size());
    const size_t width = a.size() > 1 ? Count(board, a[1]) : 0;
    if (width > point) text.insert(0, width - point, ' ');
    return TextValue(text.substr(0, kMaximumString));
}

// The first character of the second argument, so many times.
BasicValue Repeat(Board& board, const Arguments& a) {
    return TextValue(std::string(Count(board, a[0]), a[1].text.empty() ? ' ' : a[1].text[0]));
}

// The next byte that waits.
BasicValue NextKey(Board& board, const Arguments&) {
    if (board.ring.empty()) return TextValue("");
    const char key = static_cast<char>(board.ring.front());
    board.ring.pop_front();
    return TextValue(std::string(1, key));
}

BasicValue Now(Board& board, const char* format) {
    return TextValue(FormatSeconds(BoardSeconds(board), format));
}

const BasicFunction kFunctions[] = {
    {"Abs", "n", [](Board&, const Arguments& a) { return NumberValue(std::fabs(a[0].number)); }},
    {"Chr$", "n", Character},
    {"Cos", "n", [](Board&, const Arguments& a) { return NumberValue(std::cos(a[0].number)); }},
    {"Date$", "", [](Board& board, const Arguments&) { return Now(board, "%d-%m-%Y"); }},
    {"Inkey$", "", NextKey},
    {"Instr", "tt", Position},
    {"Int", "n", [](Board&, const Arguments& a) { return NumberValue(std::floor(a[0].number)); }},
    {"Left$", "tn", Left},
    {"Len", "t",
     [](Board&, const Arguments& a) { return NumberValue(static_cast<double>(a[0].text.size())); }},
    {"Mid$", "tnN", Middle},
    {"MM.Device$", "",
     [](Board& board, const Arguments&) { return TextValue(board.facts.device); }},
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
    {"Str$", "nNN", ToText},
    {"String$", "nt", Repeat},
    {"Time$", "", [](Board& board, const Arguments&) { return Now(board, "%H:%M:%S"); }},
    {"Timer", "",
     [](Board& board, const Arguments&) {
         return NumberValue(static_cast<double>(board.now - board.basic.timerStart));
     }},
    {"UCase$", "t", [](Board&, const Arguments& a) { return TextValue(UpperText(a[0].text)); }},
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
        if (*kinds == '\0') return Fail(board, "Argument count");
        const bool text = UpperChar(*kinds++) == 'T';
        arguments->push_back(text ? TextValue(TakeText(board)) : NumberValue(TakeNumber(board)));
        if (board.basic.failed) return false;
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
