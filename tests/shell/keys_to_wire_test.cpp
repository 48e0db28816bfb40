// Keys by the window system's road, with the text that X11 gives them, as bytes at the far
// end.
#include <QInputMethodEvent>
#include <QTest>
#include <QWindow>

#include "terminal/input/TerminalInput.h"
#include "tests/shell/ShellRig.h"
#include "tests/support/Chosen.h"
#include "ui/windows/Clipboard.h"

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
    {
        const Chosen once(&Choices::keysActOnce);
        Sent(Qt::Key_Return, "\r");
        QInputMethodEvent composed;  // belongs to no key
        composed.setCommitString("\r");
        QApplication::sendEvent(WidgetOfGadget(kTerminalCanvas), &composed);
        Drain();
        EXPECT_EQ(device.Read(), "\r");
    }
    EXPECT_EQ(ClipboardText(), "");
    FocusGadget(kCommandEntry);
    Drain();
    EXPECT_EQ(Sent(Qt::Key_X, "x") + Sent(Qt::Key_F10), "");
    EXPECT_EQ(Sent(Qt::Key_Return, "\r"), "x\r");
    Sent(Qt::Key_Up);
    EXPECT_EQ(GadgetText(kCommandEntry), "x");
    Sent(Qt::Key_Down);
    EXPECT_EQ(GadgetText(kCommandEntry), "");
    FocusGadget(kNicknameEntry);
    Drain();
    EXPECT_EQ(Sent(Qt::Key_Return, "\r") + Sent(Qt::Key_Up), "");
    EXPECT_EQ(GadgetText(kCommandEntry), "");
}

TEST_F(KeysToWire, ReturnIsTheAddressesWhileThatHasTheFocus) {
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
    // F10 is the window's, and so the same under each setting.
    const QString codes[] = {
        "11 12 13 14 15 17 18 19 20 21 23 24",  // plain
        "OP OQ OR OS 15 17 18 19 20 21 23 24",  // plain with the VT100 setting
        "23 24 25 26 28 29 31 32 33 34 - -",    // shifted
        "11 12 13 14 15 17 18 19 20 34 23 24",  // shifted with the XTERM setting, and ";2"
    };
    for (int i = 0; i < 12 * 4 * 3; ++i) {
        const int key = i / 12, set = i / 3 % 4;
        const Qt::KeyboardModifiers held =
            QList<Qt::KeyboardModifiers>{{}, kShift, kShift | kCtrl}[i % 3];
        if (key == 9 && i % 3 == 2) continue;  // no shortcut, and so the canvas's
        InputSettingsForTable().vt100FunctionKeys = set & 1;
        InputSettingsForTable().xtermFunctionKeys = set >> 1;
        const int column = i % 3 == 1 ? 2 + (set >> 1) : set & 1;
        const QString code = codes[column].section(' ', key, key);
        const QString tail = column == 3 && key != 9 ? ";2~" : "~";
        const QString bytes = code[0] == 'O' ? code : code == "-" ? "" : '[' + code + tail;
        EXPECT_EQ(Sent(Qt::Key_F1 + key, "", held),
                  bytes.isEmpty() ? "" : "\x1b" + bytes.toStdString())
            << i;
    }
}

}  // namespace
