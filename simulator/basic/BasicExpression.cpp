#include "simulator/basic/BasicExpression.h"

#include <cmath>
#include <cstdlib>

#include "simulator/Board.h"
#include "simulator/basic/BasicFunctions.h"
#include "simulator/basic/BasicVariables.h"

namespace simulator {

// Values are read straight from the text: there are no tokens and no tree. Every procedure
// leaves the cursor behind what it has read, and does nothing more once an error is set.

namespace {

BasicValue TakeLevel(Board& board, int level);

BasicValue Truth(bool is) {
    return NumberValue(is ? 1 : 0);
}

// Integer operators round their operands; what is beyond 64 bits counts as 0.
int64_t Whole(double number) {
    constexpr double kLimit = 9.2e18;
    if (!(number > -kLimit && number < kLimit)) return 0;
    return static_cast<int64_t>(std::llround(number));
}

// Unsigned, so that a shift by any count and of any value is defined.
int64_t ShiftLeft(int64_t value, int64_t by) {
    return by < 0 || by > 63 ? 0 : static_cast<int64_t>(static_cast<uint64_t>(value) << by);
}

int64_t ShiftRight(int64_t value, int64_t by) {
    return by < 0 || by > 63 ? 0 : static_cast<int64_t>(static_cast<uint64_t>(value) >> by);
}

// A failed operator gives 0, which nothing looks at any more: the error is set.
double IntegerDivide(Board& board, double a, double b) {
    const int64_t divisor = Whole(b);
    if (divisor == 0) return Fail(board, "Divide by zero"), 0.0;
    if (divisor == -1) return -std::trunc(a);  // INT64_MIN / -1 doesn't exist
    return static_cast<double>(Whole(a) / divisor);
}

double Divide(Board& board, double a, double b) {
    if (b == 0) return Fail(board, "Divide by zero"), 0.0;
    return a / b;
}

double Modulo(Board& board, double a, double b) {
    const int64_t divisor = Whole(b);
    if (divisor == 0) return Fail(board, "Divide by zero"), 0.0;
    if (divisor == -1) return 0;
    return static_cast<double>(Whole(a) % divisor);
}

using NumberOperator = double (*)(Board& board, double a, double b);

struct OperatorRow {
    const char* word;
    int level;  // higher binds closer
    NumberOperator apply;
};

double AsDouble(int64_t value) {
    return static_cast<double>(value);
}

// A longer sign stands before its own beginning.
const OperatorRow kOperators[] = {
    {"AND", 1, [](Board&, double a, double b) { return AsDouble(Whole(a) & Whole(b)); }},
    {"OR", 1, [](Board&, double a, double b) { return AsDouble(Whole(a) | Whole(b)); }},
    {"XOR", 1, [](Board&, double a, double b) { return AsDouble(Whole(a) ^ Whole(b)); }},
    {"<<", 3, [](Board&, double a, double b) { return AsDouble(ShiftLeft(Whole(a), Whole(b))); }},
    {">>", 3, [](Board&, double a, double b) { return AsDouble(ShiftRight(Whole(a), Whole(b))); }},
    {"<>", 2, [](Board&, double a, double b) { return a != b ? 1.0 : 0.0; }},
    {"<=", 2, [](Board&, double a, double b) { return a <= b ? 1.0 : 0.0; }},
    {">=", 2, [](Board&, double a, double b) { return a >= b ? 1.0 : 0.0; }},
    {"=<", 2, [](Board&, double a, double b) { return a <= b ? 1.0 : 0.0; }},
    {"=>", 2, [](Board&, double a, double b) { return a >= b ? 1.0 : 0.0; }},
    {"=", 2, [](Board&, double a, double b) { return a == b ? 1.0 : 0.0; }},
    {"<", 2, [](Board&, double a, double b) { return a < b ? 1.0 : 0.0; }},
    {">", 2, [](Board&, double a, double b) { return a > b ? 1.0 : 0.0; }},
    {"+", 4, [](Board&, double a, double b) { return a + b; }},
    {"-", 4, [](Board&, double a, double b) { return a - b; }},
    {"*", 5, [](Board&, double a, double b) { return a * b; }},
    {"/", 5, Divide},
    {"\\", 5, IntegerDivide},
    {"MOD", 5, Modulo},
    {"^", 6, [](Board&, double a, double b) { return std::pow(a, b); }},
};
constexpr int kHighestLevel = 6;
constexpr int kCompareLevel = 2;

// A word such as MOD must stand alone, a sign may touch what follows it.
bool IsSignAt(std::string_view line, size_t at, std::string_view sign) {
    const std::string_view here = line.substr(at, sign.size());
    if (sign[0] < 'A' || sign[0] == '\\' || sign[0] == '^') return here == sign;
    return SameWord(here, sign) && WordLength(line, at) == sign.size();
}

// Steps over an operator of that level; nullptr if none stands here.
const OperatorRow* TakeOperator(Board& board, int level) {
    if (PeekChar(board) == '\0') return nullptr;
    const std::string_view line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    for (const OperatorRow& row : kOperators) {
        if (!IsSignAt(line, at, row.word)) continue;
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
    if (row.word[0] != '+') return Fail(board, "Invalid operator"), NumberValue(0);
    if (a.text.size() + b.text.size() > kMaximumString) {
        return Fail(board, "String too long"), NumberValue(0);
    }
    return TextValue(a.text + b.text);
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

// &H, &O and &B.
BasicValue TakeBased(Board& board) {
    const std::string& line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    const char letter = at + 1 < line.size() ? UpperChar(line[at + 1]) : '\0';
    const unsigned base = letter == 'H' ? 16 : letter == 'O' ? 8 : letter == 'B' ? 2 : 0;
    if (base == 0) return Fail(board, "Type prefix is not valid"), NumberValue(0);
    uint64_t value = 0;
    for (at += 2; at < line.size(); ++at) {
        const char c = UpperChar(line[at]);
        const unsigned digit = c >= '0' && c <= '9'   ? static_cast<unsigned>(c - '0')
                               : c >= 'A' && c <= 'F' ? static_cast<unsigned>(c - 'A' + 10)
                                                      : base;
        if (digit >= base) break;
        value = value * base + digit;
    }
    return NumberValue(static_cast<double>(static_cast<int64_t>(value)));
}

// Digits, a point, an exponent. An "E" with no digits behind it is the start of a name.
BasicValue TakeDecimal(Board& board) {
    const std::string& line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    size_t end = at;
    const auto digits = [&] {
        while (end < line.size() && line[end] >= '0' && line[end] <= '9') ++end;
    };
    digits();
    if (end < line.size() && line[end] == '.') ++end;
    digits();
    if (end < line.size() && UpperChar(line[end]) == 'E') {
        const size_t mark = end++;
        if (end < line.size() && (line[end] == '-' || line[end] == '+')) ++end;
        const size_t first = end;
        digits();
        if (end == first) end = mark;
    }
    const double value = std::strtod(line.substr(at, end - at).c_str(), nullptr);
    at = end;
    if (!std::isfinite(value)) Fail(board, "Number is not valid");
    return NumberValue(value);
}

// A function is known by its name, whatever follows; any other name is a variable.
BasicValue TakeNamed(Board& board) {
    const BasicPlace before = board.basic.place;
    const std::string word = TakeWord(board);
    if (const BasicFunction* function = FindFunction(word)) return CallFunction(board, *function);
    board.basic.place = before;
    return ReadVariable(board);
}

BasicValue TakePrimary(Board& board);

// Each call steps over a character of a line of bounded length, so the depth is bounded.
// "-x" and "NOT x" bind closer than everything but "^".
BasicValue TakeUnary(Board& board) {
    if (TakeChar(board, '-')) {
        BasicValue value = TakeLevel(board, kHighestLevel);
        if (value.isText) Fail(board, "Expected a number");
        return NumberValue(-value.number);
    }
    if (TakeChar(board, '+')) return TakeUnary(board);
    if (TakeKeyword(board, "NOT")) return Truth(TakeUnary(board).number == 0);
    if (TakeKeyword(board, "INV")) return NumberValue(AsDouble(~Whole(TakeUnary(board).number)));
    return TakePrimary(board);
}

BasicValue TakePlain(Board& board) {
    const char c = PeekChar(board);
    if (c == '"') return TakeQuoted(board);
    if (c == '&') return TakeBased(board);
    if ((c >= '0' && c <= '9') || c == '.') return TakeDecimal(board);
    if (c == '-' || c == '+') return TakeUnary(board);
    if (TakeChar(board, '(')) {
        const BasicValue value = TakeLevel(board, 1);
        Expect(board, ')');
        return value;
    }
    if (WordLength(CurrentLine(board), board.basic.place.at) > 0) return TakeNamed(board);
    return Fail(board, "Syntax"), NumberValue(0);
}

// Brackets, functions and indices all come back here, so the depth is counted here.
BasicValue TakePrimary(Board& board) {
    if (board.basic.failed) return NumberValue(0);
    if (board.basic.depth >= kMaximumDepth) {
        return Fail(board, "Expression is too complex"), NumberValue(0);
    }
    ++board.basic.depth;
    const BasicValue value = TakePlain(board);
    --board.basic.depth;
    return value;
}

// Precedence climbing: operators of one level group from the left, and those of the next level
// bind closer.
BasicValue TakeLevel(Board& board, int level) {
    if (board.basic.failed) return NumberValue(0);
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
    BasicValue value;
    value.number = number;
    return value;
}

BasicValue TextValue(std::string text) {
    BasicValue value;
    value.isText = true;
    value.text = std::move(text);
    return value;
}

BasicValue TakeValue(Board& board) {
    // From a function's argument the depth goes on, from a statement it starts at 0.
    if (board.basic.depth >= kMaximumDepth) {
        return Fail(board, "Expression is too complex"), NumberValue(0);
    }
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
