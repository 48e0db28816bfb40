// The clipboard. Interface thread.
#pragma once

#include <QString>

// What other programs put on the clipboard is cut to this many characters.
constexpr int kMaxClipboardText = 16 * 1024 * 1024;
QString ClipboardText();
void SetClipboardText(const QString& text);
