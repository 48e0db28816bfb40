// A canvas: its events, their data, and what the user types while the program is busy.
#include "tests/ui/UiTest.h"

namespace {

constexpr int kCanvas = kTerminalCanvas;

struct Canvas : WithWindow {
    Canvas() {
        CanvasGadget(kFrameCanvas, 5, 30, 210, 110, kCanvasFrame + kCanvasContainer);
        CanvasGadget(kCanvas, 5, 5, 200, 100, kCanvasKeyboard);
        CloseGadgetList();
        FocusGadget(kCanvas);
        TakeEvents();
        canvas = FindCanvas(kCanvas);
    }
    PBCanvasWidget* canvas;
};

// Of each event that waits its type and what it carries, from one attribute on, in hexadecimal:
// place, buttons, key, modifiers, one that is never set, wheel, character and the key of that.
std::string Data(int first) {
    QString data;
    while (WaitForEvent(0) != kNoEvent) {
        data += QString::number(EventType());
        for (int attribute = first; attribute <= kAttributeKeyOfText; ++attribute) {
            EXPECT_EQ(EventAttribute(kFrameCanvas, attribute), 0);
            data += QString::asprintf(" %x", EventAttribute(kCanvas, attribute));
        }
        data += "|";
    }
    return data.toStdString();
}

TEST_F(Canvas, EventsCarryPlaceButtonsAndModifiers) {
    const QPoint at(12, 34);
    const auto moveTwice = [this](Qt::MouseButtons held, Qt::KeyboardModifier modifier) {
        for (const QPoint to : {QPoint(1, 3), QPoint(2, 3)}) {
            QMouseEvent event(QEvent::MouseMove, to, Qt::NoButton, held, modifier);
            QApplication::sendEvent(canvas, &event);
        }
    };
    const auto releaseElsewhere = [=] {  // no clicks: outside, and of another button
        Press(canvas, at, Qt::LeftButton);
        Release(canvas, QPoint(-10, 20), Qt::LeftButton);
        Press(canvas, at, Qt::RightButton);
        Release(canvas, at, Qt::LeftButton);
    };
    // Moves with no button collapse, and the last place stands.
    Play({{[=] { moveTwice({}, Qt::ShiftModifier); }, "65539 2 3 0 0 1 0 0 0 0|"},
          {[=] { moveTwice(Qt::RightButton, Qt::AltModifier); },
           "65539 1 3 2 0 2 0 0 0 0|65539 2 3 2 0 2 0 0 0 0|"},
          {[=] { moveTwice(Qt::LeftButton | Qt::MiddleButton, Qt::ControlModifier); },
           "65539 1 3 5 0 4 0 0 0 0|65539 2 3 5 0 4 0 0 0 0|"},
          // The wheel's steps are of 120; what is left of a turn counts for the next.
          {[this] { Turn(canvas, 119); }, ""},
          {[this] { Turn(canvas, 301); }, "65546 5 5 0 0 0 0 3 0 0|"},
          {[this] { Turn(canvas, -299); }, "65546 5 5 0 0 0 0 ffffffff 0 0|"},
          {[this] { Click(canvas); }, "65541 5 5 0 0 0 0 0 0 0|0 5 5 0 0 0 0 0 0 0|"},
          // The second press is one like any other.
          {[=] { ClickAgain(canvas, at); }, "65541 c 22 0 0 0 0 0 0 0|0 c 22 0 0 0 0 0 0 0|"},
          {releaseElsewhere, "65541 fffffff6 14 0 0 0 0 0 0 0|65541 c 22 0 0 0 0 0 0 0|"}},
         [] { return Data(kAttributeMouseX); });
}

// Each key gives a key-down, then one input for each unit of its text. Equal events merge,
// but equal keys in a row are no burst: each was typed.
TEST_F(Canvas, NothingTypedIsLostWhileAHandlerKeepsTheLoop) {
    ButtonGadget(62, 300, 5, 80, 20, "Connect");
    Key(canvas, Qt::Key_C, "\x03", Qt::ControlModifier | Qt::AltModifier);
    for (int i = 0; i < 3; ++i) Key(canvas, Qt::Key_Up);
    Key(canvas, Qt::Key_A, QString::fromUtf8("b\xF0\x9F\x98\x80"), Qt::ShiftModifier);
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf8("\xC3\xA9"));
    QApplication::sendEvent(canvas, &composed);
    QTest::keyClick(canvas, Qt::Key_Tab);  // a key of a terminal
    EXPECT_EQ(Data(kAttributeKey),
              "65547 43 6 0 0 0 0|65549 0 6 0 0 3 43|65547 1000013 0 0 0 0 0|"
              "65547 1000013 0 0 0 0 0|65547 1000013 0 0 0 0 0|65547 41 1 0 0 0 0|"
              "65549 0 1 0 0 62 41|65549 0 1 0 0 d83d 41|65549 0 1 0 0 de00 41|"
              "65549 0 1 0 0 e9 0|65547 1000001 0 0 0 0 0|65549 0 0 0 0 9 1000001|");
    FocusGadget(62);
    EXPECT_EQ(Heard(kEventGadget), "3 0 24 512|");
}

// What is drawn right behind a painting is painted by itself, a little later.
TEST_F(Canvas, IsPaintedSoonBehindEachDrawing) {
    struct Paintings : QObject {
        int count = 0;
        bool eventFilter(QObject*, QEvent* e) override {
            return count += e->type() == QEvent::Paint, false;
        }
    } paintings;
    canvas->installEventFilter(&paintings);
    for (int drawing = 1; drawing < 4; ++drawing) {
        StartDrawing(kCanvas);
        DrawBox(0, 0, drawing, 9, 0xFF);
        StopDrawing();
        EXPECT_TRUE(QTest::qWaitFor([&] { return paintings.count >= drawing; })) << drawing;
    }
}

// A canvas has its size at once: what is drawn before the window shows stays, and what is there
// stays when the size changes. On a finer screen the canvas has that screen's pixels, they go
// there one for one, and boxes that meet leave nothing between them.
TEST(CanvasPicture, IsThereAtOnceAndShowsItsPixelsAsTheyAre) {
    OpenNumberedWindow(kTestWindow, 0, 0, 300, 200, "Test", kStandardWindowFlags);
    CanvasGadget(kCanvas, 5, 5, 200, 100, kCanvasKeyboard);
    const auto draw = [] {
        StartDrawing(kCanvas);
        DrawBox(0, 0, 200, 100, 0xFFFFFF);
        for (int x = 0; x < 200; ++x) DrawBox(x, x % 7, 1, 100, static_cast<uint32_t>(x * 70001));
        StopDrawing();
    };
    draw();
    const QImage drawn = CanvasPicture(kCanvas);
    ResizeGadget(kCanvas, kKeep, kKeep, 250, kKeep);
    EXPECT_EQ(CanvasPicture(kCanvas).size(), QSize(250, 100));
    EXPECT_EQ(CanvasPicture(kCanvas).copy(0, 0, 200, 100), drawn);
    TakeEvents();
    PBCanvasWidget* const canvas = FindCanvas(kCanvas);
    for (const double scale : {1.25, 1.5, 2.0}) {
        QImage screen(600, 300, QImage::Format_RGB32);
        screen.setDevicePixelRatio(scale);
        canvas->render(&screen, QPoint(3, 5));
        draw();
        canvas->render(&screen, QPoint(3, 5));
        const QImage picture = CanvasPicture(kCanvas);
        for (int x = 0; x < 200 * scale; ++x) ASSERT_NE(picture.pixel(x, 50), 0xFFFFFFFF) << scale;
        const QRect inner(0, 0, picture.width() - 1, picture.height() - 1);
        const QImage shown = screen.copy(inner.translated(qRound(3 * scale), qRound(5 * scale)));
        EXPECT_EQ(shown.convertToFormat(QImage::Format_RGB32), picture.copy(inner)) << scale;
    }
    ResizeGadget(kCanvas, 0, 0, 0, 0);
    FitPicture(&canvas->record, 2000000000, 2000000000, 8.0);
    EXPECT_LE(CanvasPicture(kCanvas).width() * int64_t{CanvasPicture(kCanvas).height()},
              kMostPicturePixels);
}

}  // namespace
