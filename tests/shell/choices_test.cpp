// What the group [Choices] changes in the whole program, each choice both ways.
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "tests/shell/ShellRig.h"
#include "tests/support/Chosen.h"
#include "ui/InterfaceEvent.h"
#include "ui/WaitWindowEvent.h"

namespace {

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
