// A source between its file and the editor. A file that is not changed in the editor is
// written back byte by byte as it was.
#pragma once

#include <QByteArray>
#include <QString>

constexpr int kLargestText = 16 * 1024 * 1024;  // bytes of a file, characters of a text

struct SourceText {
    QString text;       // with the line ends of the file
    bool utf8 = false;  // else one byte a character, as the boards have it
    QByteArray digest;  // of the file's bytes; empty for none
};

SourceText SourceFromBytes(const QByteArray& bytes);
// The bytes of a file from those of the text area, which are UTF-8. A text that holds
// characters above 255 is written as UTF-8 whatever the file was.
QByteArray FileBytes(const QByteArray& text, bool utf8);

// What tells one content of a file from another; empty for a file that can't be read.
QByteArray DigestOf(const QByteArray& bytes);
QByteArray FileDigest(const QString& path);

// Empty when it went well, else a sentence for the user; `source` is then as it was. A file
// that does not exist gives an empty text.
QString ReadSource(const QString& path, SourceText& source);
// Puts a new file in place of the old one, whole or not at all.
QString WriteWhole(const QString& path, const QByteArray& bytes);
