#include "simulator/basic/BasicText.h"

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"

namespace simulator {
namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsNameChar(char c) {
    return IsLetter(c) || (c >= '0' && c <= '9') || c == '.';
}

bool IsTypeMark(char c) {
    return c == '$' || c == '%' || c == '!';
}

// The first of `ends` from `at` on that is not in a string.
size_t FindUnquoted(std::string_view line, size_t at, std::string_view ends) {
    bool quoted = false;
    for (; at < line.size(); ++at) {
        if (line[at] == '"') quoted = !quoted;
        if (!quoted && ends.find(line[at]) != std::string_view::npos) return at;
    }
    return std::string_view::npos;
}

}  // namespace

const std::string& CurrentLine(const Board& board) {
    const BasicPlace& place = board.basic.place;
    return place.direct ? board.basic.directLine : ProgramLine(board, place.line);
}

// Blanks mean nothing between the words. A line holds no NUL, so 0 is free to mean its end.
char PeekChar(Board& board) {
    const std::string& line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    while (at < line.size() && line[at] == ' ') ++at;
    return at < line.size() ? line[at] : '\0';
}

bool TakeChar(Board& board, char c) {
    if (PeekChar(board) != c) return false;
    ++board.basic.place.at;
    return true;
}

size_t WordLength(std::string_view line, size_t at) {
    if (at >= line.size() || !IsLetter(line[at])) return 0;
    size_t end = at;
    while (end < line.size() && IsNameChar(line[end])) ++end;
    if (end < line.size() && IsTypeMark(line[end])) ++end;
    return end - at;
}

// Names are one whatever their case.
std::string TakeWord(Board& board) {
    if (PeekChar(board) == '\0') return {};
    const std::string_view line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    const size_t length = WordLength(line, at);
    at += length;
    return UpperText(line.substr(at - length, length));
}

// The whole word must fit: "TO" is not the start of "TOTAL".
bool TakeKeyword(Board& board, const char* word) {
    const BasicPlace before = board.basic.place;
    if (TakeWord(board) == word) return true;
    board.basic.place = before;
    return false;
}

bool Expect(Board& board, char c) {
    if (TakeChar(board, c)) return true;
    return Fail(board, c == ')' ? "Expected closing bracket" : "Syntax");
}

// ELSE ends a statement of a single-line IF without a colon.
bool AtStatementEnd(Board& board) {
    const BasicPlace before = board.basic.place;
    const char c = PeekChar(board);
    const bool atElse = TakeKeyword(board, "ELSE");
    board.basic.place = before;
    return c == '\0' || c == ':' || c == '\'' || atElse;
}

// A quote mark inside a string is text. REM is a statement, not a comment in this sense.
size_t CommentStart(std::string_view line) {
    return FindUnquoted(line, 0, "'");
}

size_t StatementEnd(std::string_view line, size_t at) {
    return std::min(FindUnquoted(line, at, ":'"), line.size());
}

// A command with a colon behind it is no label.
std::string_view LabelOf(const Board& board, std::string_view line) {
    line = TrimBlanks(line);
    const size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
    const size_t length = WordLength(line, 0);
    const bool labelled = length > 0 && length < line.size() && line[length] == ':' &&
                          !FindCommand(board.facts, line.substr(0, length));
    return line.substr(0, labelled ? length : digits);
}

void SkipLine(Board& board) {
    board.basic.place.at = CurrentLine(board).size();
}

bool GoToNextLine(Board& board) {
    BasicPlace& place = board.basic.place;
    if (place.direct) return false;
    ++board.basic.cost;
    place.at = 0;
    return static_cast<size_t>(++place.line) < board.program.lines.size();
}

}  // namespace simulator
