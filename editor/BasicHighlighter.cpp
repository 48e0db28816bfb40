#include "editor/BasicHighlighter.h"

#include <QFont>

#include "editor/BasicLine.h"

namespace {

struct Style {
    BasicKind kind;
    QRgb onLight;
    QRgb onDark;
    bool bold;
};

const Style kStyles[] = {
    {BasicKind::kKeyword, 0xFF0B3D91, 0xFF7FB4FF, true},
    {BasicKind::kNumber, 0xFF8A3B00, 0xFFE8A867, false},
    {BasicKind::kText, 0xFF1B6B2F, 0xFF8FD19E, false},
    {BasicKind::kComment, 0xFF666666, 0xFFA0A0A0, false},
    {BasicKind::kDirective, 0xFF8B1A6B, 0xFFE79AD0, true},
};

QTextCharFormat FormatOf(BasicKind kind, bool dark) {
    QTextCharFormat format;
    for (const Style& style : kStyles) {
        if (style.kind != kind) continue;
        format.setForeground(QColor::fromRgb(dark ? style.onDark : style.onLight));
        if (style.bold) format.setFontWeight(QFont::Bold);
    }
    return format;
}

}  // namespace

BasicHighlighter::BasicHighlighter(QTextDocument* document, bool onDark)
    : QSyntaxHighlighter(document), dark(onDark) {}

void BasicHighlighter::highlightBlock(const QString& text) {
    for (const BasicPiece& piece : CutBasicLine(text)) {
        setFormat(piece.start, piece.length, FormatOf(piece.kind, dark));
    }
}
