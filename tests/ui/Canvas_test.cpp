// A canvas: its events, their data, and what the user types while the program is busy.

#include "tests/ui/UiTest.h"

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

// What the event that waits next carries.
std::string Data(int gadget = kCanvas) {
    std::string data = std::to_string(WaitForEvent(0) == kEventGadget ? EventType() : 0);
    for (int attribute = kAttributeMouseX; attribute <= kAttributeKeyOfText; ++attribute)
        data += " " + std::to_string(EventAttribute(gadget, attribute));
    return data;
}

TEST(Canvas, EventsCarryPlaceButtonsAndModifiers) {
    QWidget* const canvas = OpenCanvas();
    const struct {
        Qt::MouseButton button;
        Qt::KeyboardModifier modifier;
        const char* data;
    } rows[] = {
        {Qt::LeftButton, Qt::ShiftModifier, "65539 12 34 1 0 1 0 0 0 0"},
        {Qt::RightButton, Qt::AltModifier, "65539 12 34 2 0 2 0 0 0 0"},
        {Qt::MiddleButton, Qt::ControlModifier, "65539 12 34 4 0 4 0 0 0 0"},
    };
    for (const auto& row : rows) {
        QMouseEvent move(QEvent::MouseMove, QPoint(12, 34), Qt::NoButton, row.button, row.modifier);
        QApplication::sendEvent(canvas, &move);
        EXPECT_EQ(Data(), row.data);
        EXPECT_EQ(EventAttribute(kFrameCanvas, kAttributeMouseX), 0);
    }
    Turn(canvas, -240);
    EXPECT_EQ(Data(), "65546 5 5 0 0 0 0 -2 0 0");
    Click(canvas, QPoint(12, 34));
    EXPECT_EQ(Data(), "65541 12 34 0 0 0 0 0 0 0");
    EXPECT_EQ(Data(), "0 12 34 0 0 0 0 0 0 0");
    ClickAgain(canvas, QPoint(12, 34));  // the second press is one like any other
    EXPECT_EQ(TakeEvents().size(), 2u);
    Press(canvas, QPoint(10, 20), Qt::LeftButton);
    Release(canvas, QPoint(-10, 20), Qt::LeftButton);  // no click: it ends outside
    Press(canvas, QPoint(10, 20), Qt::RightButton);
    Release(canvas, QPoint(10, 20), Qt::LeftButton);
    EXPECT_EQ(TakeEvents(kEventGadget), Events(2, GadgetEvent(kCanvas, kTypeLeftButtonUp)));
    // Moves with no button collapse, and the last place stands.
    for (int x = 1; x < 9; ++x) Move(canvas, QPoint(x, 3), Qt::NoButton);
    EXPECT_EQ(Data(), "65539 8 3 0 0 0 0 0 0 0");
    for (int x = 1; x < 9; ++x) Move(canvas, QPoint(x, 3), Qt::LeftButton);
    EXPECT_EQ(TakeEvents().size(), 8u);
}

// Each key gives a key-down, then one input for each unit of its text. Equal events merge,
// but equal keys in a row are no burst: each was typed.
TEST(Canvas, NothingTypedIsLostWhileAHandlerKeepsTheLoop) {
    QWidget* const canvas = OpenCanvas();
    ButtonGadget(62, 300, 5, 80, 20, "Connect");
    Key(canvas, Qt::Key_C, "\x03", Qt::ControlModifier | Qt::AltModifier);
    for (int i = 0; i < 3; ++i) Key(canvas, Qt::Key_Up);
    Key(canvas, Qt::Key_A, QString::fromUtf8("b\xF0\x9F\x98\x80"), Qt::ShiftModifier);
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("\xC3\xA9"));
    QApplication::sendEvent(canvas, &composed);
    QTest::keyClick(canvas, Qt::Key_Tab);  // a key of a terminal
    QString typed;
    while (WaitForEvent(0) != kNoEvent) {
        for (const int attribute :
             {kAttributeKey, kAttributeInput, kAttributeKeyOfText, kAttributeModifiers})
            typed += QString::number(EventAttribute(kCanvas, attribute), 16) + " ";
        typed += "| ";
    }
    EXPECT_EQ(
        typed.toStdString(),
        "43 0 0 6 | 0 3 43 6 | 1000013 0 0 0 | 1000013 0 0 0 | 1000013 0 0 0 | 41 0 0 1 | "
        "0 62 41 1 | 0 d83d 41 1 | 0 de00 41 1 | 0 e9 0 1 | 1000001 0 0 0 | 0 9 1000001 0 | ");
    EXPECT_EQ(FocusedGadget(), kCanvas);
}

TEST(Canvas, WheelTurnsAddUpToWholeSteps) {
    QWidget* const canvas = OpenCanvas();
    static std::vector<int> wheelSteps;
    wheelSteps.clear();
    const auto note = [] { wheelSteps.push_back(EventAttribute(kCanvas, kAttributeWheel)); };
    BindGadgetHandler(kCanvas, note, kTypeMouseWheel);
    for (const int units : {60, 59, 1, 300, 60, -60, -119, -1, -240, 15, 105}) Turn(canvas, units);
    // 120 | 300, 60 kept | 60 + 60 | -60 -119 = -179, -59 kept | -1 -240 = -300, -60 kept |
    // 15 + 105 - 60 = 60, kept
    EXPECT_EQ(wheelSteps, (std::vector<int>{1, 2, 1, -1, -2}));
    EXPECT_EQ(TakeEvents(), (Events{GadgetEvent(kCanvas, kTypeMouseWheel)}));
}

// A canvas has its size at once: what is drawn before the window shows stays, and what is
// there stays when the size changes. What changed shows soon, and at once in a wait.
TEST(Canvas, ShowsItsImage) {
    OpenNumberedWindow(kTestWindow, 0, 0, 300, 200, "Test", kStandardWindowFlags);
    CanvasGadget(kCanvas, 5, 5, 100, 50, kCanvasKeyboard);
    ResizeGadget(kCanvas, kKeep, kKeep, 200, 100);
    const auto fill = [](uint32_t colour) {
        ASSERT_TRUE(StartDrawing(kCanvas));
        DrawBox(0, 0, 200, 100, colour);
        StopDrawing();
    };
    fill(0x0000FF);
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
