// Reading a source file as bytes. Interface thread.
#pragma once

#include <QString>

// The whole file, one character a byte. A missing file is created empty. False, with a
// line in the terminal, when it cannot be opened, is no regular file, or is larger than
// kLargestSource of UploadProgram.h; `text` is then empty.
bool ReadWholeSource(const QString& path, QString& text);
