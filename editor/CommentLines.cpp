#include "editor/CommentLines.h"

#include "editor/BasicEdit.h"

namespace {

struct LineRange {
    int first, last;  // from 0
};

// A selection that ends before the first character of a line does not count that line.
LineRange SelectedLines(const QsciScintilla& text) {
    int first = 0, from = 0, last = 0, to = 0;
    if (text.hasSelectedText()) {
        text.getSelection(&first, &from, &last, &to);
        return {first, to == 0 && last > first ? last - 1 : last};
    }
    text.getCursorPosition(&first, &from);
    return {first, first};
}

int FirstInk(const QString& line) {
    int at = 0;
    while (at < line.size() && line[at].isSpace()) ++at;
    return at;
}

bool AllAreComments(const QStringList& lines) {
    bool some = false;
    for (const QString& line : lines) {
        const int ink = FirstInk(line);
        if (ink == line.size()) continue;
        if (line[ink] != '\'') return false;
        some = true;
    }
    return some;
}

}  // namespace

void ToggleComments(QsciScintilla& text) {
    const LineRange range = SelectedLines(text);
    QStringList lines;
    for (int line = range.first; line <= range.last; ++line) lines += text.text(line);
    const bool remove = AllAreComments(lines);
    for (QString& line : lines) {
        const int ink = FirstInk(line);
        if (ink == line.size()) continue;
        if (remove) line.remove(ink, 1);
        if (!remove) line.insert(ink, '\'');
    }
    const long start = text.positionFromLineIndex(range.first, 0);
    const long end = text.SendScintilla(QsciScintilla::SCI_POSITIONFROMLINE, range.last) +
                     text.SendScintilla(QsciScintilla::SCI_LINELENGTH, range.last);
    const QByteArray bytes = lines.join(QString()).toUtf8();
    ReplaceBytes(text, start, end, bytes);
    if (range.last > range.first)
        text.SendScintilla(QsciScintilla::SCI_SETSEL, start, start + bytes.size());
}
