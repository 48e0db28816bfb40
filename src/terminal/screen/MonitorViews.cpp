#include "terminal/screen/MonitorViews.h"

#include <QString>

#include "base/DecodeLinkText.h"
#include "terminal/screen/TerminalScreen.h"

namespace {

constexpr int kRowBytes = 16;
constexpr int kGroupBytes = 8;
constexpr int kDigitsColumn = 2;  // of byte 0; a pair and its blank take three columns
constexpr int kDigitsPitch = 3;
constexpr int kCharacterColumn = 55;  // of byte 0
constexpr int kGroupGap = 2;          // further columns in front of the second group

// Position of the next byte in the present row, 0 to 15. Both directions share it, and
// neither a clear nor a change of mode resets it.
int hexColumn = 0;

void NextLine() {
    if (terminalScreen.cursorY < terminalScreen.rows) {
        MoveTerminalCursor(terminalScreen.cursorX, terminalScreen.cursorY + 1);
    } else {
        TerminalScrollUp(1);
    }
}

// Columns past a narrow terminal's edge are written all the same and never seen.
void PutAt(int column, const char16_t* text, int count) {
    MoveTerminalCursor(column, terminalScreen.cursorY);
    TerminalPutText(text, count);
}

void DumpByte(uint8_t byte) {
    static constexpr char16_t kDigits[] = u"0123456789ABCDEF";
    const char16_t digits[] = {kDigits[byte / 16], kDigits[byte % 16]};
    // 127 and above stand as the character of that code.
    const char16_t character = byte < ' ' ? u'.' : byte;
    const int gap = hexColumn < kGroupBytes ? 0 : kGroupGap;
    PutAt(kDigitsColumn + kDigitsPitch * hexColumn + gap, digits, 2);
    PutAt(kCharacterColumn + hexColumn + gap, &character, 1);
    hexColumn = (hexColumn + 1) % kRowBytes;
    if (hexColumn == 0) NextLine();
}

}  // namespace

void TerminalHexDump(const void* bytes, int64_t count) {
    const uint8_t* byte = static_cast<const uint8_t*>(bytes);
    for (int64_t i = 0; i < count; ++i) DumpByte(byte[i]);
}

void TerminalPrintRaw(const void* bytes, int64_t count) {
    QString text = DecodeLinkText(bytes, count);
    // Whatever the line ending is set to, unlike TerminalFeed.
    text.replace("\r\n", "\n").replace('\r', '\n');
    int start = 0;
    for (int end = text.indexOf('\n'); end >= 0; end = text.indexOf('\n', start)) {
        if (end > start) TerminalPutText(text.mid(start, end - start));
        NextLine();
        MoveTerminalCursor(1, terminalScreen.cursorY);
        start = end + 1;
    }
    if (start < text.size()) TerminalPutText(text.mid(start));
}
