#include "editor/BasicLine.h"

#include <QSet>

namespace {

// clang-format off
const QSet<QString> kKeywords = {
    "and", "arc", "as", "asc", "atn", "autosave", "base", "bin$", "blit", "box", "button", "call",
    "case", "chr$", "circle", "clear", "close", "cls", "colour", "color", "const", "continue", "copy",
    "cos", "cpu", "data", "date$", "declare", "defint", "dim", "dir$", "do", "edit", "else", "elseif",
    "end", "endif", "eof", "erase", "error", "eval", "execute", "exit", "exp", "explicit", "files",
    "fix", "float", "font", "for", "function", "gosub", "goto", "gui", "hex$", "i2c", "if", "inkey$",
    "input", "input$", "instr", "int", "integer", "inv", "irq", "kill", "lcase$", "left$", "len",
    "length", "let", "library", "line", "list", "load", "local", "log", "loop", "max", "memory",
    "mid$", "min", "mkdir", "mod", "new", "next", "not", "oct$", "on", "open", "option", "or", "output",
    "pause", "peek", "pi", "pin", "pixel", "play", "poke", "port", "pos", "print", "pulse", "pwm",
    "random", "randomize", "read", "rem", "restore", "return", "right$", "rnd", "run", "save", "seek",
    "select", "setpin", "settick", "sgn", "sin", "space$", "spc", "spi", "sqr", "static", "step",
    "str$", "string", "string$", "sub", "tab", "tan", "text", "then", "time$", "timer", "to", "touch",
    "triangle", "ucase$", "until", "val", "watchdog", "wend", "while", "xmodem", "xor"};

// First words of a comment that the console acts on.
const QSet<QString> kDirectives = {"'target", "'onload", "'encode", "'echo", "'nap", "'reconnect"};
// clang-format on

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

// "&HFF", "1.5E-3": a sign counts only behind an exponent.
int EndOfNumber(const QString& line, int at) {
    const bool decimal = line[at] != '&';
    for (++at; at < line.size(); ++at) {
        const bool sign =
            decimal && (line[at] == '-' || line[at] == '+') && line[at - 1].toLower() == 'e';
        if (!sign && !line[at].isLetterOrNumber() && line[at] != '.') break;
    }
    return at;
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

BasicPiece Word(const QString& line, int at) {
    const int end = EndOfWord(line, at);
    const QString word = line.mid(at, end - at).toLower();
    if (word == "rem") return {BasicKind::kComment, at, line.size() - at};
    // A plain word has no colour: its piece is dropped, only its length counts.
    return {BasicKind::kKeyword, at, kKeywords.contains(word) ? end - at : at - end};
}

// The piece that starts here; of negative length when it is to be shown plain.
BasicPiece PieceAt(const QString& line, int at) {
    const QChar c = line[at];
    if (c == '\'') return Comment(line, at);
    if (c == '"') return {BasicKind::kText, at, EndOfText(line, at) - at};
    if (c.isDigit() || c == '&') return {BasicKind::kNumber, at, EndOfNumber(line, at) - at};
    if (StartsWord(c)) return Word(line, at);
    return {BasicKind::kKeyword, at, -1};
}

}  // namespace

std::vector<BasicPiece> CutBasicLine(const QString& line) {
    std::vector<BasicPiece> pieces;
    for (int at = 0; at < line.size();) {
        const BasicPiece piece = PieceAt(line, at);
        if (piece.length > 0) pieces.push_back(piece);
        at += std::abs(piece.length);
    }
    return pieces;
}
