// The sequences of the function keys.
#include <QtCore/qnamespace.h>

#include "base/Numbers.h"
#include "terminal/input/TerminalInput.h"

namespace {

// The code of a function key as VT220 and its kin number them, the code of the same key
// with Shift, and the letter that a VT100 keypad sends for it.
struct FunctionKeyRow {
    int key;
    int code;
    int shiftedCode;
    char vt100Letter;  // 0 for none
};

constexpr FunctionKeyRow kFunctionKeys[] = {
    // key       code shifted letter
    {Qt::Key_F1, 11, 23, 'P'}, {Qt::Key_F2, 12, 24, 'Q'}, {Qt::Key_F3, 13, 25, 'R'},
    {Qt::Key_F4, 14, 26, 'S'}, {Qt::Key_F5, 15, 28, 0},   {Qt::Key_F6, 17, 29, 0},
    {Qt::Key_F7, 18, 31, 0},   {Qt::Key_F8, 19, 32, 0},   {Qt::Key_F9, 20, 33, 0},
    {Qt::Key_F10, 21, 34, 0},  {Qt::Key_F11, 23, 36, 0},  {Qt::Key_F12, 24, 37, 0},
};

// Above the last shifted code that exists; shifted F11 and F12 send nothing.
constexpr int kHighestCode = 34;

QString CodeSequence(int code) {
    return QString("\x1b[%1~").arg(code);
}

QString SequenceOf(const FunctionKeyRow& row, int modifiers) {
    // Equality: Shift together with another modifier counts as no shift.
    const bool shifted = modifiers == kModifierShift;
    if (!shifted && inputSettings.vt100FunctionKeys && row.vt100Letter)
        return QString("\x1bO") + QChar(row.vt100Letter);
    if (shifted && inputSettings.xtermFunctionKeys) return QString("\x1b[%1;2~").arg(row.code);
    const int code = shifted ? row.shiftedCode : row.code;
    return code > kHighestCode ? QString() : CodeSequence(code);
}

}  // namespace

QString FunctionKeyCode(int number, bool shifted) {
    const FunctionKeyRow& row = kFunctionKeys[number - 1];
    return CodeSequence(shifted ? row.shiftedCode : row.code);
}

QString FunctionKeySequence(int key, int modifiers) {
    for (const FunctionKeyRow& row : kFunctionKeys) {
        if (row.key == key) return SequenceOf(row, modifiers);
    }
    return QString();
}
