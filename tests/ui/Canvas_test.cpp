// A canvas: its events, their data, and what the user types while the program is busy.
#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>

#include "base/Numbers.h"
#include "tests/ui/Gestures.h"
#include "ui/ButtonGadget.h"
#include "ui/CanvasAccess.h"
#include "ui/CanvasGadget.h"
#include "ui/CanvasImage.h"
#include "ui/Drawing.h"
#include "ui/Gadgets.h"
#include "ui/InterfaceEvent.h"
#include "ui/TextEntryGadget.h"
#include "ui/WaitWindowEvent.h"
#include "ui/Windows.h"

namespace {

constexpr int kCanvas = kTerminalCanvas;

QWidget* OpenCanvas() {
    OpenTestWindow();
    CanvasGadget(kFrameCanvas, 5, 30, 210, 110, kCanvasFrame + kCanvasContainer);
    CanvasGadget(kCanvas, 5, 5, 200, 100, kCanvasKeyboard);
    CloseGadgetList();
    FocusGadget(kCanvas);
    TakeEvents();
    return WidgetOfGadget(kCanvas);
}

Seen CanvasEvent(int64_t type) {
    return {kEventGadget, kTestWindow, kCanvas, type};
}

// The characters of all input events that wait, and the codes of all keys.
struct Typed {
    QString text;
    std::vector<int> keys;
};
Typed TakeTyping() {
    Typed typed;
    while (WaitForEvent(0) != kNoEvent) {
        if (EventType() == kTypeInput) {
            typed.text += QChar(EventAttribute(kCanvas, kAttributeInput));
        } else if (EventType() == kTypeKeyDown) {
            typed.keys.push_back(EventAttribute(kCanvas, kAttributeKey));
        }
    }
    return typed;
}

std::vector<int> wheelSteps;

}  // namespace

TEST(Canvas, AKeyPressGivesKeyDownThenOneInputForEachUnitOfItsText) {
    QWidget* const canvas = OpenCanvas();
    Key(canvas, Qt::Key_A, QString::fromUtf8("a\xF0\x9F\x98\x80"), Qt::ShiftModifier);
    ASSERT_EQ(WaitForEvent(0), kEventGadget);
    EXPECT_EQ(EventType(), kTypeKeyDown);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeKey), Qt::Key_A);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeModifiers), kModifierShift);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeInput), 0);
    for (const int unit : {0x61, 0xD83D, 0xDE00}) {
        ASSERT_EQ(WaitForEvent(0), kEventGadget);
        EXPECT_EQ(EventType(), kTypeInput);
        EXPECT_EQ(EventAttribute(kCanvas, kAttributeInput), unit);
    }
    EXPECT_EQ(WaitForEvent(0), kNoEvent);
    Key(canvas, Qt::Key_C, "\x03", Qt::ControlModifier | Qt::AltModifier);
    WaitForEvent(0);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeModifiers), kModifierControl + kModifierAlt);
}

// Equal events merge, but equal keys in a row are no burst: each was typed.
TEST(Canvas, NothingTypedIsLostWhileAHandlerKeepsTheLoop) {
    QWidget* const canvas = OpenCanvas();
    for (int i = 0; i < 3; ++i) Key(canvas, Qt::Key_Up);
    Key(canvas, Qt::Key_Down);
    for (const QChar c : QString("aab\tbb")) Key(canvas, c.unicode(), c);
    const Typed typed = TakeTyping();
    EXPECT_EQ(typed.text, "aab\tbb");
    const std::vector<int> keys = {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, Qt::Key_Down, 'a',
                                   'a',        'b',        '\t',       'b',          'b'};
    EXPECT_EQ(typed.keys, keys);
}

TEST(Canvas, TakesTheKeysThatOtherGadgetsWouldNotGet) {
    QWidget* const canvas = OpenCanvas();
    ButtonGadget(62, 5, 200, 80, 20, "Connect");
    TakeEvents();
    Key(canvas, Qt::Key_Tab, "\t");
    Key(canvas, Qt::Key_Backtab, "", Qt::ShiftModifier);
    for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Up, Qt::Key_Left})
        Key(canvas, key);
    EXPECT_EQ(FocusedGadget(), kCanvas);
    EXPECT_EQ(TakeTyping().keys.size(), 6u);
    // Characters that are composed come as input, with no key of their own.
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("é"));
    QApplication::sendEvent(canvas, &composed);
    const Typed typed = TakeTyping();
    EXPECT_EQ(typed.text, QString::fromUtf8("é"));
    EXPECT_TRUE(typed.keys.empty());
}

TEST(Canvas, TheLeftButtonClicksInsideAndIsReleasedAnywhere) {
    QWidget* const canvas = OpenCanvas();
    Press(canvas, QPoint(10, 20), Qt::LeftButton);
    Move(canvas, QPoint(30, 20), Qt::LeftButton);
    Move(canvas, QPoint(40, 20), Qt::LeftButton);
    Release(canvas, QPoint(50, 20), Qt::LeftButton);
    // Each move of a held button counts: a selection follows them.
    Events seen;
    std::vector<int> places, buttons;
    while (WaitForEvent(0) != kNoEvent) {
        seen.push_back({EventNumber(), EventWindow(), EventObject(), EventType()});
        places.push_back(EventAttribute(kCanvas, kAttributeMouseX));
        buttons.push_back(EventAttribute(kCanvas, kAttributeButtons));
        EXPECT_EQ(EventAttribute(kCanvas, kAttributeMouseY), 20);
    }
    const Events drag = {CanvasEvent(kTypeMouseMove), CanvasEvent(kTypeMouseMove),
                         CanvasEvent(kTypeLeftButtonUp), CanvasEvent(kTypeLeftClick)};
    EXPECT_EQ(seen, drag);
    EXPECT_EQ(places, (std::vector<int>{30, 40, 50, 50}));
    EXPECT_EQ(buttons, (std::vector<int>{kButtonLeft, kButtonLeft, 0, 0}));

    Press(canvas, QPoint(10, 20), Qt::LeftButton);
    Release(canvas, QPoint(-10, 20), Qt::LeftButton);
    EXPECT_EQ(TakeEvents(), (Events{CanvasEvent(kTypeLeftButtonUp)}));
    Press(canvas, QPoint(10, 20), Qt::RightButton);
    Release(canvas, QPoint(10, 20), Qt::RightButton);
    EXPECT_EQ(TakeEvents(), (Events{{kEventRightButtonUp, kTestWindow, -1, 0}}));
    // Moves with no button collapse, and the last place stands.
    for (int x = 1; x < 9; ++x) Move(canvas, QPoint(x, 3), Qt::NoButton);
    EXPECT_EQ(WaitForEvent(0), kEventGadget);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeMouseX), 8);
    EXPECT_EQ(WaitForEvent(0), kNoEvent);
}

TEST(Canvas, WheelTurnsAddUpToWholeSteps) {
    QWidget* const canvas = OpenCanvas();
    const auto note = [] { wheelSteps.push_back(EventAttribute(kCanvas, kAttributeWheel)); };
    BindGadgetHandler(kCanvas, note, kTypeMouseWheel);
    for (const int units : {60, 59, 1, 300, 60, -60, -119, -1, -240, 15, 105}) Turn(canvas, units);
    // 120 | 300, 60 kept | 60 + 60 | -60 -119 = -179, -59 kept | -1 -240 = -300, -60 kept |
    // 15 + 105 - 60 = 60, kept
    EXPECT_EQ(wheelSteps, (std::vector<int>{1, 2, 1, -1, -2}));
    EXPECT_EQ(TakeEvents(), (Events{CanvasEvent(kTypeMouseWheel)}));
}

TEST(Canvas, AttributesAreReadOnlyWhileTheirEventIsCurrent) {
    QWidget* const canvas = OpenCanvas();
    Key(canvas, Qt::Key_A, "a");
    WaitForEvent(0);
    WaitForEvent(0);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeInput), 'a');
    EXPECT_EQ(EventAttribute(kFrameCanvas, kAttributeInput), 0);
    EXPECT_EQ(EventAttribute(kCanvas, 7), 0);
    int data = 'b';
    PostInterfaceEvent(kEventGadget, kTestWindow, kCanvas, kTypeInput, &data);
    WaitForEvent(0);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeInput), 0);  // data of another kind
    Move(WidgetOfGadget(kFrameCanvas), QPoint(3, 4), Qt::NoButton);
    WaitForEvent(0);
    EXPECT_EQ(EventAttribute(kFrameCanvas, kAttributeMouseY), 4);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeMouseY), 0);
}

TEST(Canvas, FocusIsToldForCanvasesAndEntries) {
    OpenCanvas();
    TextEntryGadget(53, 5, 200, 80, 20, "");
    ButtonGadget(62, 105, 200, 80, 20, "Connect");
    TakeEvents();
    FocusGadget(53);
    FocusGadget(62);
    FocusGadget(kCanvas);
    const Events expected = {CanvasEvent(kTypeLostFocus),
                             {kEventGadget, 0, 53, kTypeFocus},
                             {kEventGadget, 0, 53, kTypeLostFocus},
                             CanvasEvent(kTypeFocus)};
    EXPECT_EQ(TakeEventsOf(kEventGadget), expected);
    EXPECT_EQ(FocusedGadget(), kCanvas);
}

// A canvas has its size at once: what is drawn before the window shows stays, and what is
// there stays when the size changes.
TEST(Canvas, ShowsItsImage) {
    OpenNumberedWindow(kTestWindow, 0, 0, 300, 200, "Test", kStandardWindowFlags);
    CanvasGadget(kCanvas, 5, 5, 100, 50, kCanvasKeyboard);
    ResizeGadget(kCanvas, kKeep, kKeep, 200, 100);
    ASSERT_TRUE(StartDrawing(kCanvas));
    DrawBox(0, 0, 200, 100, 0x0000FF);
    StopDrawing();
    TakeEvents();
    ResizeGadget(kCanvas, kKeep, kKeep, 250, kKeep);
    EXPECT_EQ(CanvasImageOf(kCanvas)->Width(), 250);
    EXPECT_EQ(WidgetOfGadget(kCanvas)->grab().toImage().pixelColor(199, 99), QColor(255, 0, 0));
    EXPECT_EQ(CanvasImageOf(62), nullptr);
    ResizeGadget(kCanvas, 0, 0, 0, 0);
    ResizeGadget(kCanvas, 0, 0, 2000000000, 2000000000);
    EXPECT_LE(int64_t(CanvasImageOf(kCanvas)->Width()) * CanvasImageOf(kCanvas)->Height(),
              64 * 1024 * 1024);
    CanvasChanged(kCanvas, QRect(-5, -5, 1000000, 1000000));
    CanvasChanged(62, QRect(0, 0, 1, 1));
}
