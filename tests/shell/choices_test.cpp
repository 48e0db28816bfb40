// What the group [Choices] changes in the whole program, each choice both ways.
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "terminal/screen/TerminalText.h"
#include "tests/shell/ShellRig.h"
#include "tests/support/Chosen.h"
#include "ui/InterfaceEvent.h"
#include "ui/WaitWindowEvent.h"

namespace {

using namespace std::string_literals;

class ChoicesTest : public ShellRig {
  protected:
    ChoicesTest() {
        BuildWindow();
        Serve();
    }
    static void Serve() {
        for (int32_t event; (event = WaitForEvent(0)) != kNoEvent;)
            DispatchEvent(event, EventWindow());
    }
    static QWidget* Canvas() {
        for (QWidget* widget : QApplication::allWidgets())
            if (widget->property("PB_GadgetID") == kTerminalCanvas) return widget;
        return nullptr;
    }
    std::string Typed(int key, const char* text, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(Canvas(), &press);
        Serve();
        return device.Read();
    }
};

// A WebMite's greeting, a line end, a command, a subnegotiation and a 255 that is text.
const std::string kCoded =
    "\xFF\xFB\x03\xFF\xFD\x22\xFF\xFE\x22\0A\r\0\n\xFF\xF1"
    "\xFF\xFA\x18\xFF\xFFx\xFF\xF0\xFF\xFA\x18\xFF\xFD\x01"
    "B\xFF\xFF>"s;
const std::string kRefusals = "\xFF\xFE\x03\xFF\xFC\x22\xFF\xFC\x01";

}  // namespace

TEST_F(ChoicesTest, KeysActOnce) {
    const struct {
        int key;
        const char* text;
        Qt::KeyboardModifiers modifiers;
        std::string twice, once;
    } rows[] = {
        {Qt::Key_Return, "\r", Qt::NoModifier, "\r\r", "\r"},
        {Qt::Key_Backspace, "\b", Qt::NoModifier, "\b\b", "\b"},
        {Qt::Key_Delete, "\x7F", Qt::NoModifier, "\x1b[3~\x7F", "\x1b[3~"},
        {Qt::Key_Escape, "\x1b", Qt::NoModifier, "\x1b\x1b", "\x1b"},
        {Qt::Key_C, "\x03", Qt::ControlModifier, "\x03\x03", "\x03"},
        {Qt::Key_A, "a", Qt::ControlModifier, "\x01" + std::string("a"), "\x01"},
        {Qt::Key_C, "\x03", Qt::ControlModifier | Qt::ShiftModifier, "\x03", "\x03"},
        {Qt::Key_D, "d", Qt::AltModifier, "d", "d"},
        {Qt::Key_Enter, "\r", Qt::KeypadModifier, "\r", "\r"},
        {Qt::Key_Tab, "\t", Qt::NoModifier, "\t", "\t"},
        {Qt::Key_Up, "", Qt::NoModifier, "\x1b[A", "\x1b[A"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Typed(row.key, row.text, row.modifiers), row.twice);
        const Chosen once(&Choices::keysActOnce);
        EXPECT_EQ(Typed(row.key, row.text, row.modifiers), row.once);
    }
    const Chosen once(&Choices::keysActOnce);
    Typed(Qt::Key_Return, "\r");
    QInputMethodEvent composed;
    composed.setCommitString("\r");
    QApplication::sendEvent(Canvas(), &composed);
    Serve();
    EXPECT_EQ(device.Read(), "\r");
}

TEST_F(ChoicesTest, TelnetLineEndsWhereverTheBlocksAreCut) {
    FarEnd board(true);
    const auto reply = [&](const std::string& first, const std::string& rest) {
        clock.onTick = [&, start = clock.Now()](int64_t now) {
            if (now == start + 1) board.Write(first);
            if (now == start + 21) board.Write(rest);
        };
        const QString text = SendAndWait("", kWaitForPrompt);
        clock.onTick = nullptr;
        return text.toLatin1().toStdString();
    };
    EXPECT_EQ(reply(kCoded, ""), kTimeout.toStdString());  // it ends at the 0
    const Chosen plain(&Choices::telnetLineEnds);
    for (size_t cut = 0; cut <= kCoded.size(); ++cut) {
        EXPECT_EQ(reply(kCoded.substr(0, cut), kCoded.substr(cut)), "A\r\nB\xFF>") << cut;
        EXPECT_EQ(board.Read(), kRefusals) << cut;
    }
    const std::string endless = "\xFF\xFA" + std::string(1024, '?');
    EXPECT_EQ(reply(endless + "a", "b>"), "ab>");
    EXPECT_EQ(reply(std::string(900, '\xFD'), ">"), ">");
    EXPECT_EQ(board.Read().size(), 3U * 64);
    board.Write(endless.substr(0, 9));
    PollLink();
    FarEnd next(true);  // begins anew
    next.Write("c>");
    EXPECT_EQ(SendAndWait("", 1), "c>");
}

TEST_F(ChoicesTest, TelnetLineEndsAreForTextAlone) {
    FarEnd board(true);
    const Chosen plain(&Choices::telnetLineEnds);
    const auto shown = [&](int mode) {
        SetTerminalMode(mode);
        ClearTerminal(kTerminalCanvas);
        board.Write("A\xFF\xFB\x03\r\0\nB"s);
        PollLink();
        EXPECT_EQ(board.Read(), mode == kModeHexMonitor ? "" : "\xFF\xFE\x03");
        return GetTerminalText(kTextVisible).simplified();
    };
    EXPECT_EQ(shown(kModeTerminal), "A B");
    EXPECT_EQ(shown(kModeMonitor), "A B");
    EXPECT_TRUE(shown(kModeHexMonitor).startsWith("41 FF FB 03 0D 00 0A 42 "));
    SetTerminalMode(kModeTerminal);
    AdoptSerialLink(0);
    SetDeviceOnTcpip(false);
    FarEnd serial;
    serial.Write("A\xFF\xFB\x03");
    EXPECT_EQ(SendAndWait("", 1), "A\u00FF\u00FB\u0003");
}
