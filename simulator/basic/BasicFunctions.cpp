#include "simulator/basic/BasicFunctions.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "simulator/Board.h"
#include "simulator/BoardClock.h"

namespace simulator {

// Arguments are read and checked by the letters of a row before the function is called.

namespace {

using Arguments = std::vector<BasicValue>;

const std::string kNoText;
constexpr double kPi = 3.14159265358979323846;

double Number(const Arguments& arguments, size_t index, double absent = 0) {
    return index < arguments.size() ? arguments[index].number : absent;
}

const std::string& Text(const Arguments& arguments, size_t index) {
    return index < arguments.size() ? arguments[index].text : kNoText;
}

// A count of characters; negative and huge ones fail.
size_t Count(Board& board, const Arguments& arguments, size_t index, double absent = 0) {
    const double count = Number(arguments, index, absent);
    if (count >= 0 && count <= kMaximumString) return static_cast<size_t>(count);
    Fail(board, BoardFormat("%.0f is invalid (valid is 0 to %zu)", count, kMaximumString));
    return 0;
}

template <double (*function)(double)>
BasicValue Plain(Board& board, const Arguments& arguments) {
    const double result = function(arguments[0].number);
    if (!std::isfinite(result)) Fail(board, "Number is not valid");
    return NumberValue(result);
}

double Sign(double x) {
    return x > 0 ? 1 : x < 0 ? -1 : 0;
}
double ToRadians(double x) {
    return x * kPi / 180;
}
double ToDegrees(double x) {
    return x * 180 / kPi;
}

BasicValue SquareRoot(Board& board, const Arguments& arguments) {
    if (arguments[0].number < 0) return Fail(board, "Negative argument"), NumberValue(0);
    return NumberValue(std::sqrt(arguments[0].number));
}

BasicValue Logarithm(Board& board, const Arguments& arguments) {
    if (arguments[0].number <= 0) return Fail(board, "Number out of bounds"), NumberValue(0);
    return NumberValue(std::log(arguments[0].number));
}

// From 0 to below 1. The board's own generator: the same seed, the same numbers.
BasicValue RandomNumber(Board& board, const Arguments&) {
    constexpr int kSteps = 1 << 24;
    return NumberValue(static_cast<double>(Draw(board, kSteps)) / kSteps);
}

BasicValue Ascii(Board&, const Arguments& arguments) {
    const std::string& text = Text(arguments, 0);
    return NumberValue(text.empty() ? 0 : static_cast<unsigned char>(text[0]));
}

// Bytes above 127 pass as they are; a terminal may take them for UTF-8.
BasicValue Character(Board& board, const Arguments& arguments) {
    const size_t code = Count(board, arguments, 0);
    return TextValue(std::string(1, static_cast<char>(code)));
}

BasicValue Left(Board& board, const Arguments& arguments) {
    return TextValue(Text(arguments, 0).substr(0, Count(board, arguments, 1)));
}

// A count beyond the string's length gives the whole string.
BasicValue Right(Board& board, const Arguments& arguments) {
    const std::string& text = Text(arguments, 0);
    const size_t count = std::min(Count(board, arguments, 1), text.size());
    return TextValue(text.substr(text.size() - count));
}

// Positions count from 1. A start behind the end gives an empty string.
BasicValue Middle(Board& board, const Arguments& arguments) {
    const std::string& text = Text(arguments, 0);
    const size_t start = Count(board, arguments, 1);
    if (start == 0) return Fail(board, "0 is invalid (valid is 1 to 255)"), TextValue("");
    if (start > text.size()) return TextValue("");
    return TextValue(text.substr(start - 1, Count(board, arguments, 2, kMaximumString)));
}

BasicValue Position(Board&, const Arguments& arguments) {
    // Both INSTR(text, part) and INSTR(start, text, part) are in use.
    const bool started = !arguments[0].isText;
    const double from = started ? std::clamp(arguments[0].number, 1.0, 256.0) : 1;
    const size_t found = Text(arguments, started ? 1 : 0)
                             .find(Text(arguments, started ? 2 : 1), static_cast<size_t>(from) - 1);
    return NumberValue(found == std::string::npos ? 0 : static_cast<double>(found + 1));
}

// STR$(number [, places before the point [, places behind it [, padding]]]).
BasicValue ToText(Board& board, const Arguments& arguments) {
    constexpr double kMaximumDecimals = 15;
    const double number = arguments[0].number;
    std::string text = NumberText(number);
    if (arguments.size() > 2) {
        const int decimals =
            static_cast<int>(std::clamp(Number(arguments, 2), 0.0, kMaximumDecimals));
        text = BoardFormat("%.*f", decimals, number);
    }
    const size_t point = std::min(text.find('.'), text.size());
    const size_t width = Count(board, arguments, 1);
    const char padding = Text(arguments, 3).empty() ? ' ' : Text(arguments, 3)[0];
    if (width > point) text.insert(0, width - point, padding);
    return TextValue(text.substr(0, kMaximumString));
}

BasicValue ToNumber(Board&, const Arguments& arguments) {
    const std::string& text = Text(arguments, 0);
    // strtod would read names such as "inf" and hexadecimal as well.
    const size_t end = text.find_first_not_of(" +-.0123456789eE");
    const double value = std::strtod(text.substr(0, end).c_str(), nullptr);
    return NumberValue(std::isfinite(value) ? value : 0);
}

// In base 16, 8 or 2, padded with zeros to a width.
template <unsigned bits>
BasicValue InBase(Board& board, const Arguments& arguments) {
    auto value = static_cast<uint64_t>(
        static_cast<int64_t>(std::clamp(arguments[0].number, -9.2e18, 9.2e18)));
    std::string text;
    do {
        text.insert(text.begin(), "0123456789ABCDEF"[value & ((1u << bits) - 1)]);
        value >>= bits;
    } while (value != 0);
    const size_t width = Count(board, arguments, 1);
    if (width > text.size()) text.insert(0, width - text.size(), '0');
    return TextValue(text);
}

// The second argument is a character code or a string, of which the first character counts.
BasicValue Repeat(Board& board, const Arguments& arguments) {
    const size_t count = Count(board, arguments, 0);
    const char c = !arguments[1].isText         ? static_cast<char>(Count(board, arguments, 1))
                   : Text(arguments, 1).empty() ? ' '
                                                : Text(arguments, 1)[0];
    return TextValue(std::string(count, c));
}

BasicValue Blanks(Board& board, const Arguments& arguments) {
    return TextValue(std::string(Count(board, arguments, 0), ' '));
}

// Blanks up to a column; only PRINT makes use of it.
BasicValue ToColumn(Board& board, const Arguments& arguments) {
    const size_t target = Count(board, arguments, 0);
    const size_t here = static_cast<size_t>(board.out.column);
    return TextValue(std::string(target > here ? target - here : 0, ' '));
}

// The next key that waits; an escape sequence counts as one.
BasicValue NextKey(Board& board, const Arguments&) {
    auto& ring = board.in.ring;
    const std::string waiting(ring.begin(),
                              ring.begin() + static_cast<long>(std::min<size_t>(ring.size(), 5)));
    unsigned char key = 0;
    const size_t length = FirstKey(waiting, &key);
    if (length == 0) return TextValue("");
    ring.erase(ring.begin(), ring.begin() + static_cast<long>(length));
    return TextValue(std::string(1, static_cast<char>(key)));
}

// Milliseconds of board time since RUN or since TIMER was set.
BasicValue Timer(Board& board, const Arguments&) {
    return NumberValue(static_cast<double>(board.now - board.basic.timerStart));
}

BasicValue DateText(Board& board, const Arguments&) {
    return TextValue(BoardDate(board));
}
BasicValue TimeText(Board& board, const Arguments&) {
    return TextValue(BoardTime(board));
}
BasicValue Folder(Board& board, const Arguments&) {
    return TextValue(board.files.folder);
}
BasicValue Version(Board& board, const Arguments&) {
    return NumberValue(board.facts.version);
}
BasicValue Device(Board& board, const Arguments&) {
    return TextValue(board.facts.device);
}
BasicValue Pi(Board&, const Arguments&) {
    return NumberValue(kPi);
}
BasicValue Upper(Board&, const Arguments& a) {
    return TextValue(UpperText(Text(a, 0)));
}
BasicValue Lower(Board&, const Arguments& a) {
    return TextValue(LowerText(Text(a, 0)));
}

BasicValue Length(Board&, const Arguments& arguments) {
    return NumberValue(static_cast<double>(Text(arguments, 0).size()));
}

BasicValue Smallest(Board&, const Arguments& arguments) {
    double result = arguments[0].number;
    for (const BasicValue& value : arguments) result = std::min(result, value.number);
    return NumberValue(result);
}

BasicValue Largest(Board&, const Arguments& arguments) {
    double result = arguments[0].number;
    for (const BasicValue& value : arguments) result = std::max(result, value.number);
    return NumberValue(result);
}

const BasicFunction kFunctions[] = {
    {"ABS", "Abs", "n", Plain<std::fabs>},
    {"ASC", "Asc", "t", Ascii},
    {"ATN", "Atn", "n", Plain<std::atan>},
    {"BIN$", "Bin$", "nN", InBase<1>},
    {"CHR$", "Chr$", "n", Character},
    {"CINT", "Cint", "n", Plain<std::round>},
    {"COS", "Cos", "n", Plain<std::cos>},
    {"CWD$", "Cwd$", "", Folder},
    {"DATE$", "Date$", "", DateText},
    {"DEG", "Deg", "n", Plain<ToDegrees>},
    {"EXP", "Exp", "n", Plain<std::exp>},
    {"FIX", "Fix", "n", Plain<std::trunc>},
    {"HEX$", "Hex$", "nN", InBase<4>},
    {"INKEY$", "Inkey$", "", NextKey},
    {"INSTR", "Instr", "**T", Position},
    {"INT", "Int", "n", Plain<std::floor>},
    {"LCASE$", "LCase$", "t", Lower},
    {"LEFT$", "Left$", "tn", Left},
    {"LEN", "Len", "t", Length},
    {"LOG", "Log", "n", Logarithm},
    {"MAX", "Max", "nNNNNNNN", Largest},
    {"MID$", "Mid$", "tnN", Middle},
    {"MIN", "Min", "nNNNNNNN", Smallest},
    {"MM.DEVICE$", "MM.Device$", "", Device},
    {"MM.VER", "MM.Ver", "", Version},
    {"OCT$", "Oct$", "nN", InBase<3>},
    {"PI", "Pi", "", Pi},
    {"RAD", "Rad", "n", Plain<ToRadians>},
    {"RIGHT$", "Right$", "tn", Right},
    {"RND", "Rnd", "N", RandomNumber},
    {"SGN", "Sgn", "n", Plain<Sign>},
    {"SIN", "Sin", "n", Plain<std::sin>},
    {"SPACE$", "Space$", "n", Blanks},
    {"SQR", "Sqr", "n", SquareRoot},
    {"STR$", "Str$", "nNNT", ToText},
    {"STRING$", "String$", "n*", Repeat},
    {"TAB", "Tab", "n", ToColumn},
    {"TAN", "Tan", "n", Plain<std::tan>},
    {"TIME$", "Time$", "", TimeText},
    {"TIMER", "Timer", "", Timer},
    {"UCASE$", "UCase$", "t", Upper},
    {"VAL", "Val", "t", ToNumber},
};

// Letter `kind` of a row's arguments: does the value fit? "*" takes both.
bool FitsKind(char kind, const BasicValue& value) {
    return kind == '*' || value.isText == (UpperChar(kind) == 'T');
}

// A capital in a row's letters.
bool MayBeAbsent(char kind) {
    return kind >= 'A' && kind <= 'Z';
}

// Everything between the brackets; false with an error set.
bool TakeArguments(Board& board, const char* kinds, Arguments* arguments) {
    if (!TakeChar(board, '('))
        return *kinds == '\0' || MayBeAbsent(*kinds) || Fail(board, "Syntax");
    if (TakeChar(board, ')'))
        return *kinds == '\0' || MayBeAbsent(*kinds) || Fail(board, "Argument count");
    const size_t maximum = std::string_view(kinds).size();
    do {
        if (arguments->size() >= maximum) return Fail(board, "Argument count");
        arguments->push_back(TakeValue(board));
        if (board.basic.failed) return false;
        const char kind = kinds[arguments->size() - 1];
        if (!FitsKind(kind, arguments->back())) {
            return Fail(board, UpperChar(kind) == 'T' ? "Expected a string" : "Expected a number");
        }
    } while (TakeChar(board, ','));
    const char next = kinds[arguments->size()];
    if (next != '\0' && !MayBeAbsent(next)) return Fail(board, "Argument count");
    return Expect(board, ')');
}

}  // namespace

const BasicFunction* FindFunction(std::string_view word) {
    const auto* row = std::lower_bound(
        std::begin(kFunctions), std::end(kFunctions), word,
        [](const BasicFunction& function, std::string_view key) { return function.word < key; });
    return row != std::end(kFunctions) && row->word == word ? row : nullptr;
}

// What the arguments are was checked before, so the functions read them blindly.
BasicValue CallFunction(Board& board, const BasicFunction& function) {
    Arguments arguments;
    if (!TakeArguments(board, function.arguments, &arguments)) return NumberValue(0);
    return function.call(board, arguments);
}

}  // namespace simulator
