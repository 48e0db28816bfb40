#include "terminal/screen/TerminalText.h"

#include <algorithm>

#include "base/EightBitText.h"
#include "base/LineEnding.h"
#include "base/TextRules.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/windows/FileDialogs.h"

namespace {

void AppendLine(QString* text, const TerminalLine& line) {
    const int last = std::min({line.length, terminalScreen.maxLineLength, kLastColumn});
    for (int column = 1; column <= last; ++column) {
        const char16_t ch = line.cells[column].ch;
        *text += ch ? QChar(ch) : QChar(' ');
    }
    *text += lineEnding.bytes;
}

// A name without an extension takes that of the chosen pattern; the third has none.
QString WithExtension(const FileChoice& choice) {
    const char* const extensions[] = {".bas", ".txt", ""};
    const bool known = choice.pattern >= 0 && choice.pattern < 3;
    const bool bare = ExtensionPart(choice.path).isEmpty();
    return bare && known ? choice.path + extensions[choice.pattern] : choice.path;
}

}  // namespace

QString GetTerminalText(TextPart part) {
    int first = 1;
    int last = TerminalLineCount() - 1;
    if (part != TextPart::kAll) {
        first = terminalScreen.topLine + 1;
        last = std::min(last, terminalScreen.topLine + terminalScreen.rows);
    }
    QString text;
    for (int element = first; element <= last; ++element) {
        if (const TerminalLine* line = TerminalLineAt(element)) AppendLine(&text, *line);
    }
    return text;
}

void SaveTerminalText(TextPart part) {
    const FileChoice choice = AskSaveFile("Save", QString(), kSourcePatterns);
    // A cancelled dialog gives an empty name and the first pattern, so this is ".bas".
    const QString name = WithExtension(choice);
    const QString text = part == TextPart::kCapture ? TakeCapture() : GetTerminalText(part);
    if (!name.isEmpty()) WriteEightBitText(name, text);
}
