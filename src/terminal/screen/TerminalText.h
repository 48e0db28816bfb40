// The terminal's text, out of its cells. Interface thread.
#pragma once

#include <QString>

enum class TextPart { kVisible, kAll, kCapture };

// The shown lines (kVisible) or all lines held (kAll), each up to its length and
// followed by the line ending. An empty cell gives a blank; a line stops at the setting
// "Maximum line length".
QString GetTerminalText(TextPart part);

// Asks for a name and writes the shown lines, all lines or the capture (which is then
// emptied) to that file, one byte a character. A cancelled dialog counts as the name
// ".bas" in the current folder. A file that can't be created is passed over.
void SaveTerminalText(TextPart part);
