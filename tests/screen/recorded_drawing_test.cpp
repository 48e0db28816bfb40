// Recorded drawing gives the pixels that drawing at once gives, at every scale, and those
// are the toolkit's.
#include <random>

#include "tests/screen/ScreenRig.h"

namespace {

// The second canvas is looked at after each call, so nothing of it is kept or left out.
constexpr int kRecorded = kTerminalCanvas, kAtOnce = kFrameCanvas;
constexpr double kScales[] = {1, 1, 1.25, 1.5, 2, 1.1};

class RecordedDrawing : public testing::Test {
  protected:
    RecordedDrawing() {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 200, "", kStandardWindowFlags);
        for (const int canvas : {kRecorded, kAtOnce}) CanvasGadget(canvas, 0, 0, 100, 100, 0);
        // Number 4 stays unknown. The third is proportional and larger than its cells.
        LoadNumberedFont(1, "Liberation Mono", 9, kFontPlain);
        LoadNumberedFont(2, "Liberation Mono", 9, kFontBold);
        LoadNumberedFont(3, "Liberation Sans", 14, kFontPlain);
    }

    int Number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    }
    bool OneIn(int n) { return Number(1, n) == 1; }
    uint32_t Colour() {
        static const uint32_t kColours[] = {0, 0xFFFFFF, 0x0000CD, 0xE10000, 0xFF123456};
        return OneIn(6) ? static_cast<uint32_t>(Number(0, 0xFFFFFF)) : kColours[Number(0, 4)];
    }
    void Fit(int newWidth, int newHeight, double scale) {
        width = newWidth;
        height = newHeight;
        for (const int canvas : {kRecorded, kAtOnce})
            FitPicture(&FindCanvas(canvas)->record, width, height, scale);
    }
    // One call of any kind, on the canvas that is open.
    void Draw() {
        static const char16_t kOthers[] = {0, 7, 0xE9, 0x301, 0x4E2D, 0xD83D, 0xFFFF, 0x2588};
        const int kind = Number(0, 99), x = Number(-20, width + 5), y = Number(-20, height);
        if (kind < 20) return MovePicture(y, Number(-1, 140), Number(-20, 99), Colour());
        if (kind < 46)
            return (kind < 26 ? DrawXorBox : DrawBox)(OneIn(3) ? 0 : x, OneIn(8) ? 0 : y,
                                                      OneIn(3) ? width : Number(-1, 60),
                                                      OneIn(8) ? height : Number(-1, 30), Colour());
        std::u16string text;
        for (int count = Number(0, 20); count > 0; --count)
            text += OneIn(8) ? kOthers[Number(0, 7)] : char16_t(Number(' ', '~'));
        const CellLook look = {Colour(), Colour(), int16_t(Number(1, 4)), !OneIn(5)};
        DrawCells(x, y, {text.data(), int(text.size()), look},
                  {Number(0, 14), Number(0, 16), Number(0, 22)});
    }

    std::mt19937 random;
    int width = 1, height = 1;
};

TEST_F(RecordedDrawing, EqualsDrawingAtOnceWhateverIsDrawnAndWheneverOneLooks) {
    const unsigned first = std::random_device()();
    for (unsigned seed = first; seed != first + 500; ++seed) {
        random.seed(seed);
        for (int step = 0, last = Number(0, 60); step <= last; ++step) {
            if (step == 0 || OneIn(60))
                Fit(Number(20, 140), Number(20, 120), kScales[Number(0, 5)]);
            const std::mt19937 sameAgain = random;
            for (const int canvas : {kAtOnce, kRecorded}) {
                random = sameAgain;
                ASSERT_TRUE(StartDrawing(canvas));
                Draw();
                StopDrawing();
                if (canvas == kAtOnce) CanvasPicture(canvas);
            }
            if (step < last && !OneIn(25)) continue;
            ASSERT_EQ(CanvasPicture(kRecorded), CanvasPicture(kAtOnce)) << seed;
        }
    }
}

// Boxes and cells that meet leave nothing between them and nothing at the picture's end,
// however far the picture was moved before.
TEST_F(RecordedDrawing, NeighboursMeetAtEveryScale) {
    for (const double scale : {1.1, 1.25, 1.5, 1.75, 2.0}) {
        Fit(93, 61, scale);
        ASSERT_TRUE(StartDrawing(kRecorded) && StartDrawing(kRecorded));
        StopDrawing();  // the inner one
        EXPECT_FALSE(StartDrawing(kAtOnce) || StartDrawing(kTerminalScrollBar));
        for (int moved = 0; moved < 40; ++moved) {
            MovePicture(17, 61 - 17, 0, 0);
            DrawCells(0, 61 - 17, {u"        ", 8, {0, 0xFFFFFF, 1, true}}, {10, 10, 17});
            DrawBox(80, 61 - 17, 13, 17, 0xFFFFFF);
            if (moved < 4 || moved % 3) continue;
            const QImage picture = CanvasPicture(kRecorded);
            QImage all(picture);
            all.fill(Qt::white);
            ASSERT_EQ(picture, all) << scale << ' ' << moved;
        }
        StopDrawing();
    }
}

QColor ColourOf(uint32_t bgr) {
    return QColor(bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF);
}

// What was drawn with a font stays when that is replaced or freed.
TEST_F(RecordedDrawing, GlyphsAreTheToolkits) {
    for (const int scale : {1, 2}) {
        QImage plain(40 * scale, 900 * scale, QImage::Format_RGB32);
        plain.setDevicePixelRatio(scale);
        plain.fill(Qt::white);
        Fit(40, 900, scale);
        ResetCanvasPicture(kRecorded, 40, 900);
        ASSERT_TRUE(StartDrawing(kRecorded));
        QPainter painter(&plain);
        for (int y = -5; y < 900; y += 18) {
            LoadNumberedFont(1, "Liberation Mono", Number(8, 15), kFontPlain);
            // Combining marks among them: their ink lies outside a box without a width.
            const char16_t c = char16_t(OneIn(2) ? Number('!', 0x17F) : Number(0x300, 0x36F));
            const CellLook look = {Colour(), Colour(), int16_t(Number(1, 3)), true};
            DrawCells(12, y, {&c, 1, look}, {20, 22, 17});
            const QColor paper = ColourOf(look.background);
            painter.fillRect(12, y, 22, 17, paper);
            DrawGlyph(&painter, 12, y, *NumberedFont(look.font), ColourOf(look.foreground), paper,
                      c);
        }
        StopDrawing();
        painter.end();
        FreeNumberedFont(1);
        plain.setDevicePixelRatio(1);
        EXPECT_EQ(CanvasPicture(kRecorded), plain) << scale;
        EXPECT_EQ(TextWidthOf(1, "W"), 0);
    }
}

}  // namespace
