// A canvas: its events, their data, and what the user types while the program is busy.

#include "tests/support/Gestures.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/drawing/Drawing.h"
#include "ui/drawing/PBCanvasWidget.h"

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

// The characters of all input events that wait, and the codes of all keys.
struct Typed {
    QString text;
    std::vector<int> keys;
    int modifiers = 0;  // of the last one
};
Typed TakeTyping() {
    Typed typed;
    while (WaitForEvent(0) != kNoEvent) {
        typed.modifiers = EventAttribute(kCanvas, kAttributeModifiers);
        const int key = EventAttribute(kCanvas, kAttributeKey);
        EXPECT_EQ(key != 0, EventType() == kTypeKeyDown);
        if (key != 0) typed.keys.push_back(key);
        if (EventType() == kTypeInput)
            typed.text += QChar(EventAttribute(kCanvas, kAttributeInput));
    }
    return typed;
}

// Each key gives a key-down, then one input for each unit of its text. Equal events merge,
// but equal keys in a row are no burst: each was typed.
TEST(Canvas, NothingTypedIsLostWhileAHandlerKeepsTheLoop) {
    QWidget* const canvas = OpenCanvas();
    Key(canvas, Qt::Key_C, "\x03", Qt::ControlModifier | Qt::AltModifier);
    for (int i = 0; i < 3; ++i) Key(canvas, Qt::Key_Up);
    const QString text = QString::fromUtf8("aab\tbb\xF0\x9F\x98\x80");
    for (const QChar c : text.left(6)) Key(canvas, c.unicode(), c);
    Key(canvas, Qt::Key_A, text.mid(6), Qt::ShiftModifier);
    WaitForEvent(0);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeModifiers), kModifierControl + kModifierAlt);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeInput), 0);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeKey), Qt::Key_C);
    const Typed typed = TakeTyping();
    EXPECT_EQ(typed.text, "\x03" + text);
    const std::vector<int> keys = {Qt::Key_Up, Qt::Key_Up, Qt::Key_Up, 'a', 'a',
                                   'b',        '\t',       'b',        'b', Qt::Key_A};
    EXPECT_EQ(typed.keys, keys);
    EXPECT_EQ(typed.modifiers, kModifierShift);
}

TEST(Canvas, AClickEndsInsideAndMovesCollapse) {
    QWidget* const canvas = OpenCanvas();
    Press(canvas, QPoint(10, 20), Qt::LeftButton);
    Release(canvas, QPoint(-10, 20), Qt::LeftButton);
    EXPECT_EQ(TakeEvents(), (Events{GadgetEvent(kCanvas, kTypeLeftButtonUp)}));
    // Moves with no button collapse, and the last place stands.
    for (int x = 1; x < 9; ++x) Move(canvas, QPoint(x, 3), Qt::NoButton);
    EXPECT_EQ(WaitForEvent(0), kEventGadget);
    EXPECT_EQ(EventAttribute(kCanvas, kAttributeMouseX), 8);
    EXPECT_EQ(WaitForEvent(0), kNoEvent);
}

TEST(Canvas, WheelTurnsAddUpToWholeSteps) {
    QWidget* const canvas = OpenCanvas();
    static std::vector<int> wheelSteps;
    const auto note = [] { wheelSteps.push_back(EventAttribute(kCanvas, kAttributeWheel)); };
    BindGadgetHandler(kCanvas, note, kTypeMouseWheel);
    for (const int units : {60, 59, 1, 300, 60, -60, -119, -1, -240, 15, 105}) Turn(canvas, units);
    // 120 | 300, 60 kept | 60 + 60 | -60 -119 = -179, -59 kept | -1 -240 = -300, -60 kept |
    // 15 + 105 - 60 = 60, kept
    EXPECT_EQ(wheelSteps, (std::vector<int>{1, 2, 1, -1, -2}));
    EXPECT_EQ(TakeEvents(), (Events{GadgetEvent(kCanvas, kTypeMouseWheel)}));
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
    PBCanvasWidget* const canvas = FindCanvas(kCanvas);
    EXPECT_EQ(CanvasPicture(kCanvas).size(), QSize(250, 100));
    EXPECT_EQ(canvas->grab().toImage().pixelColor(199, 99), QColor(255, 0, 0));
    ResizeGadget(kCanvas, 0, 0, 0, 0);
    for (const double scale : {1.0, 1.25, 8.0}) {
        FitPicture(&canvas->record, 2000000000, 2000000000, scale);
        const QSize size = CanvasPicture(kCanvas).size();
        EXPECT_LE(int64_t(size.width()) * size.height(), kMostPicturePixels);
    }
    canvas->ShowSoon(QRect(-5, -5, 1000000, 1000000));
}

// On a finer screen the canvas has that screen's pixels, and they go there one for one.
TEST(Canvas, ShowsItsPixelsAsTheyAreAtEachScale) {
    OpenCanvas();
    for (const double scale : {1.25, 1.5, 2.0}) {
        QImage screen(500, 300, QImage::Format_RGB32);
        screen.setDevicePixelRatio(scale);
        FitPicture(&FindCanvas(kCanvas)->record, 200, 100, scale);
        ASSERT_TRUE(StartDrawing(kCanvas));
        for (int x = 0; x < 200; ++x) DrawBox(x, x % 7, 1, 100, static_cast<uint32_t>(x * 70001));
        StopDrawing();
        FindCanvas(kCanvas)->render(&screen, QPoint(3, 5));
        const QImage picture = CanvasPicture(kCanvas);
        ASSERT_EQ(picture.width(), int(200 * scale));
        const QPoint corner(qRound(3 * scale), qRound(5 * scale));
        const QRect inner(0, 0, picture.width() - 1, picture.height() - 1);
        EXPECT_EQ(screen.copy(inner.translated(corner)).convertToFormat(QImage::Format_RGB32),
                  picture.copy(inner))
            << scale;
    }
}

}  // namespace
