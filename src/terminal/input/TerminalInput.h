// Keys, mouse and wheel of the terminal canvas, turned into bytes for the device. There
// is no local echo: what shows on the screen is what the device returns. Two events
// come for a key press, key down and input, and each is acted on by itself, so a key
// with a row in the key table and with text acts twice, unless the user chose that it acts
// once. Interface thread.
#pragma once

#include <QString>

// No wheel event stands for more arrow keys than this.
constexpr int kMostWheelArrows = 256;

struct InputSettings {
    int vt100FunctionKeys = 0;  // F1 to F4 use the ESC O forms
    int xtermFunctionKeys = 0;  // shifted function keys use the ";2~" forms
    int mouseScrollRate = 1;    // lines for each wheel step; its sign counts in mouse mode
    int clickXShift = 5;        // pixels added before a click becomes a column
    int clickYShift = 5;        // pixels added before a click becomes a row
};

extern const InputSettings& inputSettings;
InputSettings& InputSettingsForTable();  // for the settings table alone

// Key down on the canvas: the current event's key and modifiers by the key table.
void HandleTerminalKey();
// Input on the canvas: the current event's character to the device. Where keys act once,
// the text of a key that the table has sent already is left out.
void HandleTerminalInput();

// What a function key sends; empty for nothing and for any other key. `key` is a toolkit
// key code from F1 to F12, `modifiers` a sum of kModifier values.
QString FunctionKeySequence(int key, int modifiers);
// CSI, the code of F1 to F12 (`number` 1 to 12) as a VT220 counts it, and "~", whatever the
// settings are.
QString FunctionKeyCode(int number, bool shifted);

// A left click in mouse mode, at the current event's place.
void SendMouseReport();
// What it sends for a click at x, y in canvas pixels.
QString MouseReport(int x, int y);

// The wheel: bound to the canvas. Arrow keys in mouse mode 1, else the scrollback.
void MouseWheelHandler();
