// Text files of one byte a character, as the boards have them. Any thread.
#pragma once

#include <QString>

// Writes `text` in place of the file's contents; a character above 255 becomes "?". A file
// that can't be created is passed over.
void WriteEightBitText(const QString& path, const QString& text);
