// The keys that send bytes on key down.
#include <QtCore/qnamespace.h>

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "link/LinkPrimitives.h"
#include "terminal/input/TerminalInput.h"
#include "ui/InterfaceEvent.h"

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

}  // namespace

void HandleTerminalKey() {
    const int key = EventAttribute(kTerminalCanvas, kAttributeKey);
    const int modifiers = EventAttribute(kTerminalCanvas, kAttributeModifiers);
    if (key == Qt::Key_Escape) {
        SendCommandLine("\x1b", false);  // waits for the reply, unlike all other keys
    } else if (IsControlLetter(key, modifiers)) {
        SendText(ByteText(key - kControlLetterOffset));
    } else if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        SendFunctionKey(key, modifiers);
    } else {
        SendText(FixedSequence(key));
    }
}

void HandleTerminalInput() {
    const int unit = EventAttribute(kTerminalCanvas, kAttributeInput);
    SendText(QString(QChar(static_cast<ushort>(unit))));
}
