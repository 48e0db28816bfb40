#include "simulator/basic/BasicText.h"

#include "simulator/Board.h"

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
    PeekChar(board);
    const std::string& line = CurrentLine(board);
    size_t& at = board.basic.place.at;
    const size_t length = WordLength(line, at);
    const std::string word =
        UpperText(std::string_view(line).substr(std::min(at, line.size()), length));
    at += length;
    return word;
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
    const char c = PeekChar(board);
    if (c == '\0' || c == ':' || c == '\'') return true;
    const std::string& line = CurrentLine(board);
    const size_t at = board.basic.place.at;
    return WordLength(line, at) == 4 && SameWord(std::string_view(line).substr(at, 4), "ELSE");
}

// A quote mark inside a string is text. REM is a statement, not a comment in this sense.
size_t CommentStart(std::string_view line) {
    bool quoted = false;
    for (size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') quoted = !quoted;
        if (line[i] == '\'' && !quoted) return i;
    }
    return std::string_view::npos;
}

// A colon inside a string is text.
size_t StatementEnd(std::string_view line, size_t at) {
    bool quoted = false;
    for (; at < line.size(); ++at) {
        if (line[at] == '"') quoted = !quoted;
        if (!quoted && (line[at] == ':' || line[at] == '\'')) break;
    }
    return at;
}

void SkipLine(Board& board) {
    board.basic.place.at = CurrentLine(board).size();
}

}  // namespace simulator
