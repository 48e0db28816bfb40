// The one line-ending setting. It rules what is sent behind a command, what text
// extraction writes, and how received line ends are read.
#pragma once

#include <QString>

#include "base/Numbers.h"

struct LineEnding {
    QString bytes;  // CR LF, CR or LF
    QString name;   // as the settings file holds it; "CRLF", "CR", "LF", or another text,
                    // which leaves `bytes` at CR LF
};

// The line endings that can be chosen, and the menu item of each.
struct LineEndingRow {
    const char* name;
    const char* bytes;
    int item;
};
constexpr LineEndingRow kLineEndings[] = {
    {"CRLF", "\r\n", kItemLineEndingCrLf},
    {"CR", "\r", kItemLineEndingCr},
    {"LF", "\n", kItemLineEndingLf},
};

// The line ending in force. Starts as CR LF, "CRLF". Interface thread.
extern const LineEnding& lineEnding;

// Takes the name and the bytes that belong to it. Interface thread.
void SetLineEnding(const QString& name);
