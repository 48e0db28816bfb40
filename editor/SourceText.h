// A source between its file and the editor. A file that is not changed in the editor is
// written back byte by byte as it was, but for mixed line ends, which become the first
// one's.
#pragma once

#include <QString>

constexpr int kLargestText = 16 * 1024 * 1024;  // bytes of a file, characters of a text

struct SourceText {
    QString text;       // lines end in LF
    bool utf8 = false;  // else one byte a character, as the boards have it
    bool crLf = false;  // lines of the file end in CR LF, else in LF
};

SourceText SourceFromBytes(const QByteArray& bytes);
// A text that holds characters above 255 is written as UTF-8 whatever it was.
QByteArray BytesFromSource(const SourceText& source);

// Empty when it went well, else a sentence for the user; `source` is then as it was. A file
// that does not exist gives an empty text.
QString ReadSource(const QString& path, SourceText& source);
// Replaces the file whole or not at all.
QString WriteSource(const QString& path, const SourceText& source);
