#include "upload/SourcePreparation.h"

#include "base/LineEnding.h"
#include "base/TextRules.h"
#include "upload/SpecText.h"

// All of these go through the text once: a source of many megabytes must not be cut or
// replaced line by line at its front.

namespace {

const QString kEditorMark = "'KWEDIT!!!";
const QString kEchoMark = "'echo";
const QString kOnloadMark = "'onload";

bool BeginsWithMark(const QString& line, const QString& mark) {
    return line.left(mark.size()).toLower() == mark;
}

// Up to the first comment mark that stands outside a string. REM is no such mark. A
// string that is not closed swallows the marks behind it.
QString CutComment(const QString& line) {
    bool insideString = false;
    for (int i = 0; i < line.size(); ++i) {
        if (line[i] == '"') insideString = !insideString;
        if (line[i] == '\'' && !insideString) return TrimBlanks(line.left(i));
    }
    return line;
}

// Runs of blanks outside strings become one blank.
QString CollapseBlanks(const QString& text) {
    QString collapsed;
    collapsed.reserve(text.size());
    bool insideString = false;
    QChar previous;
    for (const QChar c : text) {
        if (c == '"') insideString = !insideString;
        if (insideString || c != ' ' || previous != ' ') collapsed += c;
        previous = c;
    }
    return collapsed;
}

// The two directives that a crunch keeps stay as they are, blanks included. Every other
// directive is a comment here, and so is the form with a blank behind the mark.
QString StripLineComment(const QString& line) {
    if (BeginsWithMark(line, kEchoMark) || BeginsWithMark(line, kOnloadMark)) return line;
    return CollapseBlanks(CutComment(line));
}

// Whether the line of `length` characters from `start` on is the editor's mark.
bool IsEditorMark(const QString& text, int start, int length) {
    const QString line = text.mid(start, length);
    return TrimBlanks(line).left(kEditorMark.size()).toUpper() == kEditorMark;
}

}  // namespace

QString NormaliseLineEndings(QString text) {
    QChar* const characters = text.data();
    int kept = 0;  // never above i, so what stands at i - 1 is still what was read there
    for (int i = 0; i < text.size(); ++i) {
        const bool endOfPair = characters[i] == '\n' && i > 0 && characters[i - 1] == '\r';
        if (!endOfPair) characters[kept++] = characters[i];
    }
    text.truncate(kept);
    return text.replace('\r', '\n');
}

int BehindMarkerLines(const QString& text, int start) {
    for (;;) {
        const int end = text.indexOf('\n', start);
        if (end < 0 || !IsEditorMark(text, start, end - start)) return start;
        start = end + 1;
    }
}

QString StripMarkerLines(const QString& text) {
    return text.mid(BehindMarkerLines(text, 0));
}

QString CrunchSource(const QString& source) {
    const QString text = QString(source).remove('\r');
    QString crunched;
    crunched.reserve(text.size() + (text.count('\n') + 1) * lineEnding.bytes.size());
    for (int start = 0; start < text.size();) {
        int end = text.indexOf('\n', start);
        if (end < 0) end = text.size();
        const QString line = StripLineComment(TrimBlanks(text.mid(start, end - start)));
        if (!line.isEmpty()) crunched += line + lineEnding.bytes;
        start = end + 1;
    }
    return crunched;
}
