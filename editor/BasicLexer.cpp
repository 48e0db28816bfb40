#include "editor/BasicLexer.h"

#include <Qsci/qsciscintilla.h>

#include "companion/Colours.h"
#include "editor/BasicLine.h"

namespace {

struct Style {
    BasicKind kind;
    const char* name;  // the library wants one for each
    QRgb onLight;
    QRgb onDark;
    bool bold;
};

const Style kStyles[] = {
    {BasicKind::kKeyword, "Keyword", 0xFF0B3D91, 0xFF7FB4FF, true},
    {BasicKind::kNumber, "Number", 0xFF8A3B00, 0xFFE8A867, false},
    {BasicKind::kText, "Text", 0xFF1B6B2F, 0xFF8FD19E, false},
    {BasicKind::kComment, "Comment", 0xFF666666, 0xFFA0A0A0, false},
    {BasicKind::kDirective, "Directive", 0xFF8B1A6B, 0xFFE79AD0, true},
    {BasicKind::kLabel, "Label", 0xFF00666B, 0xFF6FD3D8, true},
};

int EndOfLine(const QByteArray& bytes, int at) {
    while (at < bytes.size() && bytes[at] != '\n' && bytes[at] != '\r') ++at;
    return at;
}

}  // namespace

void BasicLexer::TakeColours(const QPalette& palette) {
    const bool dark = IsDark(palette);
    setDefaultPaper(palette.base().color());
    setDefaultColor(palette.text().color());
    setPaper(palette.base().color());
    setColor(palette.text().color());
    for (const Style& style : kStyles) {
        setColor(QColor::fromRgb(dark ? style.onDark : style.onLight),
                 static_cast<int>(style.kind));
    }
}

void BasicLexer::TakeFont(const QFont& font) {
    setDefaultFont(font);
    setFont(font);
    QFont bold(font);
    bold.setBold(true);
    for (const Style& style : kStyles) {
        if (style.bold) setFont(bold, static_cast<int>(style.kind));
    }
}

QString BasicLexer::description(int style) const {
    if (style == static_cast<int>(BasicKind::kPlain)) return "Plain";
    for (const Style& each : kStyles) {
        if (style == static_cast<int>(each.kind)) return each.name;
    }
    return QString();
}

const char* BasicLexer::wordCharacters() const {
    return "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.$%!";
}

// The text holds UTF-8 and styles go by bytes, so each byte is taken as a character; those
// above 127 only stand in texts and comments.
void BasicLexer::styleText(int start, int end) {
    const QByteArray bytes = editor()->bytes(start, end).left(end - start);  // a 0 stands behind
    startStyling(start);
    for (int at = 0; at < end - start;) {
        const int lineEnd = EndOfLine(bytes, at);
        int styled = at;
        for (const BasicPiece& piece :
             CutBasicLine(QString::fromLatin1(bytes.mid(at, lineEnd - at)))) {
            setStyling(at + piece.start - styled, static_cast<int>(BasicKind::kPlain));
            setStyling(piece.length, static_cast<int>(piece.kind));
            styled = at + piece.start + piece.length;
        }
        at = std::min(lineEnd + 1, end - start);
        setStyling(at - styled, static_cast<int>(BasicKind::kPlain));
    }
}
