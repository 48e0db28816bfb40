// The keys that send bytes on key down.
#include <QtCore/qnamespace.h>

#include "base/Choices.h"
#include "base/Numbers.h"
#include "base/TextRules.h"
#include "link/LinkPrimitives.h"
#include "terminal/input/TerminalInput.h"
#include "ui/drawing/CanvasEventData.h"

namespace {

struct KeyRow {
    int key;
    const char* bytes;
};

// Keys that send the same bytes with any modifier. Return is CR whatever line ending is
// set for commands.
constexpr KeyRow kKeys[] = {
    {Qt::Key_Return, "\r"},    {Qt::Key_Up, "\x1b[A"},      {Qt::Key_Down, "\x1b[B"},
    {Qt::Key_Right, "\x1b[C"}, {Qt::Key_Left, "\x1b[D"},    {Qt::Key_Backspace, "\b"},
    {Qt::Key_Home, "\x1b[1~"}, {Qt::Key_Insert, "\x1b[2~"}, {Qt::Key_Delete, "\x1b[3~"},
    {Qt::Key_End, "\x1b[4~"},  {Qt::Key_PageUp, "\x1b[5~"}, {Qt::Key_PageDown, "\x1b[6~"},
    {Qt::Key_Escape, "\x1b"},
};

QString FixedSequence(int key) {
    for (const KeyRow& row : kKeys) {
        if (row.key == key) return QString(row.bytes);
    }
    return QString();
}

// Ctrl with nothing else makes a letter its control character.
bool IsControlLetter(int key, int modifiers) {
    return key >= Qt::Key_A && key <= Qt::Key_Z && modifiers == kModifierControl;
}

constexpr int kControlLetterOffset = 64;

// What the table has for a key; empty for a key without a row.
QString BytesOf(int key, int modifiers) {
    if (IsControlLetter(key, modifiers)) return ByteText(key - kControlLetterOffset);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return FunctionKeySequence(key, modifiers);
    return FixedSequence(key);
}

// Whether the current input is the text of a key that the table has sent already.
bool WasSentAsKey() {
    const int key = EventAttribute(kTerminalCanvas, kAttributeKeyOfText);
    return !BytesOf(key, EventAttribute(kTerminalCanvas, kAttributeModifiers)).isEmpty();
}

}  // namespace

void HandleTerminalKey() {
    const int key = EventAttribute(kTerminalCanvas, kAttributeKey);
    const QString bytes = BytesOf(key, EventAttribute(kTerminalCanvas, kAttributeModifiers));
    if (key == Qt::Key_Escape) {
        SendCommandLine(bytes, false);  // waits for the reply, unlike all other keys
    } else {
        SendText(bytes);
    }
}

void HandleTerminalInput() {
    if (choices.keysActOnce && WasSentAsKey()) return;
    const int unit = EventAttribute(kTerminalCanvas, kAttributeInput);
    SendText(QString(QChar(static_cast<ushort>(unit))));
}
