// Reading a source file as bytes. Interface thread.
#pragma once

#include <QString>

constexpr int kLargestSource = 64 * 1024 * 1024;  // bytes read of a source file

// The whole file, one character a byte. A missing file is created empty. False, with a
// line in the terminal, when it cannot be opened, is no regular file, or is larger than
// kLargestSource; `text` is then empty.
bool ReadWholeSource(const QString& path, QString& text);

// The file as 8-bit text, one character a byte. A missing file is created empty. On
// failure prints "File read failed!!" and gives an empty text. Clears pasteSource.
QString ReadSourceFile(const QString& path);
