#include "upload/SourceLines.h"

SourceLines::SourceLines(const QString& source) : text(source) {
    if (!text.endsWith('\n')) text += '\n';
    count = text.count('\n');
}

QString SourceLines::Next() {
    const int end = text.indexOf('\n', position);
    const QString line = text.mid(position, end - position);
    position = end + 1;
    return line;
}
