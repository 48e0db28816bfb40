#include "simulator/basic/BasicExpression.h"

#include <cmath>
#include <cstdlib>

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"
#include "simulator/basic/BasicFunctions.h"
#include "simulator/basic/BasicVariables.h"

// Values are read straight from the text: there are no tokens and no tree. Every procedure
// leaves the cursor behind what it has read, and does nothing more once an error is set.

namespace simulator {
namespace {

BasicValue TakeLevel(Board& board, int level);

// Integer operators round their operands; what is beyond 64 bits counts as 0.
int64_t Whole(double number) {
    constexpr double kLimit = 9.2e18;
    if (!(number > -kLimit && number < kLimit)) return 0;
    return static_cast<int64_t>(std::llround(number));
}

double AsDouble(int64_t value) {
    return static_cast<double>(value);
}

// A divisor; 0 fails, and what is reckoned with it is not looked at.
double NotZero(Board& board, double divisor) {
    if (divisor == 0) Fail(board, "Divide by zero");
    return divisor;
}

using NumberOperator = double (*)(Board& board, double a, double b);

struct OperatorRow {
    const char* word;
    int level;  // higher binds closer
    NumberOperator apply;
};

// A longer sign stands before its own beginning.
const OperatorRow kOperators[] = {
    {"AND", 1, [](Board&, double a, double b) { return AsDouble(Whole(a) & Whole(b)); }},
    {"OR", 1, [](Board&, double a, double b) { return AsDouble(Whole(a) | Whole(b)); }},
    {"<>", 2, [](Board&, double a, double b) { return a != b ? 1.0 : 0.0; }},
    {"<=", 2, [](Board&, double a, double b) { return a <= b ? 1.0 : 0.0; }},
    {">=", 2, [](Board&, double a, double b) { return a >= b ? 1.0 : 0.0; }},
    {"=", 2, [](Board&, double a, double b) { return a == b ? 1.0 : 0.0; }},
    {"<", 2, [](Board&, double a, double b) { return a < b ? 1.0 : 0.0; }},
    {">", 2, [](Board&, double a, double b) { return a > b ? 1.0 : 0.0; }},
    {"+", 3, [](Board&, double a, double b) { return a + b; }},
    {"-", 3, [](Board&, double a, double b) { return a - b; }},
    {"*", 4, [](Board&, double a, double b) { return a * b; }},
    {"/", 4, [](Board& o, double a, double b) { return a / NotZero(o, b); }},
    {"\\", 4,
     [](Board& o, double a, double b) {
         return std::trunc(std::round(a) / NotZero(o, std::round(b)));
     }},
    {"MOD", 4,
     [](Board& o, double a, double b) {
         return std::fmod(std::round(a), NotZero(o, std::round(b)));
     }},
    {"^", 5, [](Board&, double a, double b) { return std::pow(a, b); }},
};
constexpr int kHighestLevel = 5;
constexpr int kCompareLevel = 2;

// A word such as MOD must stand alone, a sign may touch what follows it.
bool IsSignAt(std::string_view line, size_t at, std::string_view sign) {
    const size_t word = WordLength(sign, 0);
    return SameWord(line.substr(at, sign.size()), sign) &&
           (word == 0 || WordLength(line, at) == word);
}

// Steps over an operator of that level; nullptr if none stands here.
const OperatorRow* TakeOperator(Board& board, int level) {
    if (PeekChar(board) == '\0') return nullptr;
    size_t& at = board.basic.place.at;
    for (const OperatorRow& row : kOperators) {
        if (!IsSignAt(CurrentLine(board), at, row.word)) continue;
        if (row.level != level) return nullptr;
        at += std::string_view(row.word).size();
        return &row;
    }
    return nullptr;
}

// Strings know the comparisons, by bytes, and "+".
BasicValue ApplyToTexts(Board& board, const OperatorRow& row, const BasicValue& a,
                        const BasicValue& b) {
    if (row.level == kCompareLevel) {
        return NumberValue(row.apply(board, a.text.compare(b.text), 0));
    }
    if (row.word[0] != '+') {
        Fail(board, "Invalid operator");
    } else if (a.text.size() + b.text.size() > kMaximumString) {
        Fail(board, "String too long");
    }
    return board.basic.failed ? TextValue("") : TextValue(a.text + b.text);
}

BasicValue Apply(Board& board, const OperatorRow& row, const BasicValue& a, const BasicValue& b) {
    if (a.isText != b.isText) {
        return Fail(board, a.isText ? "Expected a string" : "Expected a number"), NumberValue(0);
    }
    if (a.isText) return ApplyToTexts(board, row, a, b);
    const double result = row.apply(board, a.number, b.number);
    if (!std::isfinite(result)) Fail(board, "Number is not valid");
    return NumberValue(result);
}

// A string has no escapes: a quote inside is written as CHR$(34).
BasicValue TakeQuoted(Board& board) {
    const std::string& line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    const size_t start = ++at;
    const size_t end = line.find('"', start);
    if (end == std::string::npos) return Fail(board, "Unterminated string"), TextValue("");
    at = end + 1;
    return TextValue(line.substr(start, end - start));
}

// Digits, a point, an exponent. An "E" with no digits behind it is the start of a name.
BasicValue TakeDecimal(Board& board) {
    const std::string& line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    std::string text = line.substr(at, line.find_first_not_of("0123456789.+-eE", at) - at);
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    // A point alone is no number.
    if (end == text.c_str()) return Fail(board, "Syntax"), NumberValue(0);
    at += static_cast<size_t>(end - text.c_str());
    if (!std::isfinite(value)) Fail(board, "Number is not valid");
    return NumberValue(value);
}

// A function is known by its name, whatever follows; any other name is a variable.
BasicValue TakeNamed(Board& board) {
    const BasicPlace before = board.basic.place;
    const std::string word = TakeWord(board);
    if (const BasicFunction* function = FindFunction(word)) return CallFunction(board, *function);
    RefuseAbsent(board, word);
    board.basic.place = before;
    return ReadVariable(board);
}

BasicValue TakePlain(Board& board) {
    const char c = PeekChar(board);
    if (c == '"') return TakeQuoted(board);
    if ((c >= '0' && c <= '9') || c == '.') return TakeDecimal(board);
    if (TakeChar(board, '(')) {
        const BasicValue value = TakeValue(board);
        Expect(board, ')');
        return value;
    }
    if (WordLength(CurrentLine(board), board.basic.place.at) > 0) return TakeNamed(board);
    Fail(board, c == '&' ? "& numbers are not in the simulated board" : "Syntax");
    return NumberValue(0);
}

// Each call steps over a character of a line of bounded length, so the depth is bounded.
// "-x" and "NOT x" bind closer than everything but "^".
BasicValue TakeUnary(Board& board) {
    if (TakeChar(board, '-')) {
        const BasicValue value = TakeLevel(board, kHighestLevel);
        if (value.isText) Fail(board, "Expected a number");
        return NumberValue(-value.number);
    }
    if (TakeChar(board, '+')) return TakeUnary(board);
    if (TakeKeyword(board, "NOT")) return NumberValue(TakeUnary(board).number == 0 ? 1 : 0);
    return TakePlain(board);
}

// Precedence climbing: operators of one level group from the left, and those of the next level
// bind closer.
BasicValue TakeLevel(Board& board, int level) {
    if (level > kHighestLevel) return TakeUnary(board);
    BasicValue value = TakeLevel(board, level + 1);
    while (!board.basic.failed) {
        const OperatorRow* row = TakeOperator(board, level);
        if (!row) break;
        value = Apply(board, *row, value, TakeLevel(board, level + 1));
    }
    return value;
}

}  // namespace

BasicValue NumberValue(double number) {
    return {false, number, {}};
}

BasicValue TextValue(std::string text) {
    return {true, 0, std::move(text)};
}

// Brackets, functions and indices all come through here, one level deeper than what holds them.
BasicValue TakeValue(Board& board) {
    if (board.basic.depth >= kMaximumDepth) Fail(board, "Expression is too complex");
    if (board.basic.failed) return NumberValue(0);
    ++board.basic.depth;
    const BasicValue value = TakeLevel(board, 1);
    --board.basic.depth;
    return value;
}

double TakeNumber(Board& board) {
    const BasicValue value = TakeValue(board);
    if (value.isText) Fail(board, "Expected a number");
    return value.number;
}

std::string TakeText(Board& board) {
    const BasicValue value = TakeValue(board);
    if (!value.isText) Fail(board, "Expected a string");
    return value.text;
}

int TakeInteger(Board& board, int low, int high) {
    const int64_t number = Whole(TakeNumber(board));
    if (number >= low && number <= high) return static_cast<int>(number);
    Fail(board, BoardFormat("%lld is invalid (valid is %d to %d)", static_cast<long long>(number),
                            low, high));
    return low;
}

// Whole numbers are written out as long as a double holds them exactly; others have ten digits.
std::string NumberText(double number) {
    if (number == std::floor(number) && std::fabs(number) < 1e15) {
        return BoardFormat("%.0f", number == 0 ? 0.0 : number);
    }
    return BoardFormat("%.10g", number);
}

}  // namespace simulator
