// Keys by the window system's road, with the text that X11 gives them, as bytes at the far
// end.
#include "tests/shell/ShellRig.h"

namespace {

class KeysToWire : public ShellRig {
  protected:
    KeysToWire() { OpenWindow(); }

    std::string Sent(int key, const char* text = "", Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::sendKeyEvent(QTest::Click, WidgetOfWindow(kMainWindow)->windowHandle(),
                            static_cast<Qt::Key>(key), QString::fromUtf8(text), held);
        Drain();
        return device.Read();
    }
};

constexpr Qt::KeyboardModifier kCtrl = Qt::ControlModifier, kAlt = Qt::AltModifier,
                               kShift = Qt::ShiftModifier;

// A key with a row in the key table and with a text acts twice, unless it is chosen otherwise.
TEST_F(KeysToWire, OfTheTableAndWithText) {
    // clang-format off
    const struct {
        int key;
        const char* text;
        Qt::KeyboardModifiers held;
        const char *sent, *once = sent;
    } keyRows[] = {
        {Qt::Key_Return, "\r", {}, "\r\r", "\r"}, {Qt::Key_Return, "\r", kCtrl, "\r\r", "\r"},
        {Qt::Key_Enter, "\r", Qt::KeypadModifier, "\r"},
        {Qt::Key_Escape, "\x1b", {}, "\x1b\x1b", "\x1b"},
        {Qt::Key_Backspace, "\b", {}, "\b\b", "\b"},
        {Qt::Key_Delete, "\x7f", {}, "\x1b[3~\x7f", "\x1b[3~"},
        {Qt::Key_Tab, "\t", {}, "\t"}, {Qt::Key_Backtab, "", kShift, ""},
        {Qt::Key_Up, "", {}, "\x1b[A"}, {Qt::Key_Down, "", {}, "\x1b[B"},
        {Qt::Key_Right, "", {}, "\x1b[C"}, {Qt::Key_Left, "", kShift, "\x1b[D"},
        {Qt::Key_Home, "", {}, "\x1b[1~"}, {Qt::Key_Insert, "", {}, "\x1b[2~"},
        {Qt::Key_End, "", {}, "\x1b[4~"}, {Qt::Key_PageUp, "", {}, "\x1b[5~"},
        {Qt::Key_PageDown, "", kCtrl, "\x1b[6~"}, {Qt::Key_C, "c", {}, "c"},
        {Qt::Key_C, "C", kShift, "C"}, {Qt::Key_A, "\x01", kCtrl, "\x01\x01", "\x01"},
        {Qt::Key_A, "a", kCtrl, "\x01" "a", "\x01"},  // of some layouts
        {Qt::Key_Z, "\x1a", kCtrl, "\x1a\x1a", "\x1a"},
        {Qt::Key_C, "\x03", kCtrl | kShift, "\x03"},
        {Qt::Key_X, "x", kAlt, "x"}, {Qt::Key_E, "e", kAlt, "e"}, {Qt::Key_Alt, "", {}, ""},
        {Qt::Key_C, "c", kAlt, ""},  // the window's own
        {Qt::Key_BracketLeft, "\x1b", kCtrl, "\x1b"},
        {Qt::Key_Adiaeresis, "\xC3\xA4", {}, "\xE4"}, {Qt::Key_1, "1", Qt::KeypadModifier, "1"},
        {Qt::Key_F13, "", {}, ""},
    };
    // clang-format on
    SetClipboardText("old");
    for (const auto& row : keyRows) {
        const int64_t start = clock.Now();
        EXPECT_EQ(Sent(row.key, row.text, row.held), row.sent) << row.key;
        EXPECT_EQ(clock.Now() - start, row.key == Qt::Key_Escape ? 120 : 0);  // its reply
        const Chosen once(&Choices::keysActOnce);
        EXPECT_EQ(Sent(row.key, row.text, row.held), row.once) << row.key;
    }
    EXPECT_EQ(ClipboardText(), "");
    ChoicesForTable().keysActOnce = 1;
    Sent(Qt::Key_Return, "\r");
    QInputMethodEvent composed;  // belongs to no key
    composed.setCommitString("\r");
    QApplication::sendEvent(WidgetOfGadget(kTerminalCanvas), &composed);
    Drain();
    EXPECT_EQ(device.Read(), "\r");
    ChoicesForTable().keysActOnce = 0;
    FocusGadget(kCommandEntry);
    Drain();
    EXPECT_EQ(Sent(Qt::Key_X, "x") + Sent(Qt::Key_F10) + Sent(Qt::Key_F10, "", kShift), "");
    EXPECT_EQ(Sent(Qt::Key_Return, "\r"), "x\r");
    Sent(Qt::Key_Up);
    EXPECT_EQ(GadgetText(kCommandEntry), "x");
    Sent(Qt::Key_Down);
    EXPECT_EQ(GadgetText(kCommandEntry), "");
    FocusGadget(kNicknameEntry);
    Drain();
    EXPECT_EQ(Sent(Qt::Key_Return, "\r") + Sent(Qt::Key_Up), "");
    EXPECT_EQ(GadgetText(kCommandEntry), "");
    LinkSettingsForTable().tcpAddress = "a\nb";
    HideGadget(kAddressEntry, false);
    for (int gadget : {kAddressEntry, kTerminalCanvas}) {
        FocusGadget(gadget);
        Drain();
        EXPECT_EQ(Sent(Qt::Key_Return, "\r"), gadget == kTerminalCanvas ? "\r\r" : "");
        EXPECT_EQ(linkSettings.tcpAddress, "ab");
    }
}

TEST_F(KeysToWire, OfTheFunctionKeys) {
    // Plain and with the VT100 setting; shifted and with the XTERM setting. F10 is the
    // window's, and so the same under each.
    const char* const codes[] = {
        "[11~ [12~ [13~ [14~ [15~ [17~ [18~ [19~ [20~ [21~ [23~ [24~ ",
        "OP OQ OR OS [15~ [17~ [18~ [19~ [20~ [21~ [23~ [24~ ",
        "[23~ [24~ [25~ [26~ [28~ [29~ [31~ [32~ [33~ [34~   ",
        "[11;2~ [12;2~ [13;2~ [14;2~ [15;2~ [17;2~ [18;2~ [19;2~ [20;2~ [34~ [23;2~ [24;2~ "};
    for (int i = 0; i < 4 * 3; ++i) {
        const int vt100 = i % 2, xterm = i / 2 % 2;
        const Qt::KeyboardModifiers held = i < 4   ? kShift
                                           : i < 8 ? kShift | kCtrl
                                                   : Qt::KeyboardModifiers();
        InputSettingsForTable().vt100FunctionKeys = vt100;
        InputSettingsForTable().xtermFunctionKeys = xterm;
        QString sent;
        for (int key = Qt::Key_F1; key <= Qt::Key_F12; ++key) {
            const bool plain = i >= 4 && key == Qt::Key_F10;  // no shortcut with Ctrl
            const std::string bytes = Sent(key, "", plain ? Qt::KeyboardModifiers() : held);
            sent += QString::fromStdString(bytes).remove('\x1b') + ' ';
        }
        EXPECT_EQ(sent, codes[i < 4 ? 2 + xterm : vt100]) << i;
    }
}

}  // namespace
