#include "editor/BasicLine.h"

#include <QSet>

#include "editor/BasicIndex.h"

namespace {

// First words of a comment that the console acts on.
const QSet<QString> kDirectives = {"'target", "'onload", "'encode", "'echo", "'nap", "'reconnect"};

bool IsDigit(QChar c) {
    return c >= '0' && c <= '9';
}

bool StartsWord(QChar c) {
    return c.isLetter() || c == '_';
}

bool GoesOnWord(QChar c) {
    return c.isLetterOrNumber() || c == '_' || c == '.';
}

int EndOfWord(const QString& line, int at) {
    while (at < line.size() && GoesOnWord(line[at])) ++at;
    const bool suffixed =
        at < line.size() && (line[at] == '$' || line[at] == '%' || line[at] == '!');
    return suffixed ? at + 1 : at;
}

int EndOfDigits(const QString& line, int at) {
    while (at < line.size() && IsDigit(line[at])) ++at;
    return at;
}

// "E-3" behind a number counts only with a digit in it: "5ELSE" is a number and a word.
int EndOfExponent(const QString& line, int at) {
    if (at >= line.size() || line[at].toLower() != 'e') return at;
    int digits = at + 1;
    if (digits < line.size() && (line[digits] == '-' || line[digits] == '+')) ++digits;
    const int end = EndOfDigits(line, digits);
    return end > digits ? end : at;
}

// "&HFF" and "&B101" whole, or "1.5E-3".
int EndOfNumber(const QString& line, int at) {
    if (line[at] == '&') {
        for (++at; at < line.size() && line[at].isLetterOrNumber();) ++at;
        return at;
    }
    at = EndOfDigits(line, at);
    if (at < line.size() && line[at] == '.') at = EndOfDigits(line, at + 1);
    return EndOfExponent(line, at);
}

int EndOfText(const QString& line, int at) {
    const int quote = line.indexOf('"', at + 1);
    return quote < 0 ? line.size() : quote + 1;
}

BasicPiece Comment(const QString& line, int at) {
    const QString word = line.mid(at, line.indexOf(' ', at) - at).toLower();
    const BasicKind kind = kDirectives.contains(word) ? BasicKind::kDirective : BasicKind::kComment;
    return {kind, at, line.size() - at};
}

// Where a piece stands in its line.
struct Spot {
    bool first = true;    // nothing but blanks and a line number before it
    bool behind = false;  // nothing but blanks and a bracket between it and a word of BASIC
};

// A word with a colon behind it is a label only where the first statement of the line begins.
BasicPiece Word(const QString& line, int at, const Spot& spot) {
    const int end = EndOfWord(line, at);
    const QString word = line.mid(at, end - at);
    if (word.toLower() == "rem") return {BasicKind::kComment, at, line.size() - at};
    if (BeginsEntry(word) || (spot.behind && IsBasicWord(word))) {
        return {BasicKind::kKeyword, at, end - at};
    }
    const bool label = spot.first && end < line.size() && line[end] == ':';
    return {label ? BasicKind::kLabel : BasicKind::kPlain, at, end - at};
}

BasicPiece PieceAt(const QString& line, int at, const Spot& spot) {
    const QChar c = line[at];
    const bool point = c == '.' && at + 1 < line.size() && IsDigit(line[at + 1]);
    if (c == '\'') return Comment(line, at);
    if (c == '"') return {BasicKind::kText, at, EndOfText(line, at) - at};
    if (spot.first && IsDigit(c)) return {BasicKind::kLabel, at, EndOfDigits(line, at) - at};
    if (IsDigit(c) || point || c == '&')
        return {BasicKind::kNumber, at, EndOfNumber(line, at) - at};
    if (StartsWord(c)) return Word(line, at, spot);
    return {BasicKind::kPlain, at, 1};
}

Spot SpotBehind(const BasicPiece& piece, QChar c, const Spot& spot) {
    const bool number = spot.first && piece.kind == BasicKind::kLabel && IsDigit(c);
    const bool between = spot.behind && (c.isSpace() || c == '(');
    return {spot.first && (c.isSpace() || number), piece.kind == BasicKind::kKeyword || between};
}

}  // namespace

std::vector<BasicPiece> CutBasicLine(const QString& line) {
    std::vector<BasicPiece> pieces;
    Spot spot;
    for (int at = 0; at < line.size();) {
        const BasicPiece piece = PieceAt(line, at, spot);
        if (piece.kind != BasicKind::kPlain) pieces.push_back(piece);
        spot = SpotBehind(piece, line[at], spot);
        at += piece.length;
    }
    return pieces;
}

bool EndsInCode(const QString& line) {
    const std::vector<BasicPiece> pieces = CutBasicLine(line);
    if (pieces.empty() || pieces.back().start + pieces.back().length < line.size()) return true;
    const BasicKind last = pieces.back().kind;
    return last == BasicKind::kKeyword || last == BasicKind::kNumber || last == BasicKind::kLabel;
}
