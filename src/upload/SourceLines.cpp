#include "upload/SourceLines.h"

SourceLines::SourceLines(const QString& source)
    : text(source), count(source.count('\n') + (source.endsWith('\n') ? 0 : 1)) {}

QString SourceLines::Next() {
    const int end = text.indexOf('\n', position);
    const QString line = text.mid(position, end < 0 ? -1 : end - position);
    position = end + 1;
    ++taken;
    return line;
}
