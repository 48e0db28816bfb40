// Recorded drawing gives the pixels that drawing at once gives, at every scale, and those
// are the toolkit's.
#include <random>

#include "tests/screen/ScreenRig.h"

namespace {

constexpr double kScales[] = {1, 1, 1.25, 1.5, 2, 1.1};

struct RecordedDrawing : testing::Test {
    RecordedDrawing() {
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
    // One call of any kind.
    void Draw(PaintRecord* record) {
        static const char16_t kOthers[] = {0, 7, 0xE9, 0x301, 0x4E2D, 0xD83D, 0xFFFF, 0x2588};
        const int kind = Number(0, 99);
        const int x = Number(-20, record->width + 5), y = Number(-20, record->height);
        if (kind < 20)
            return RecordMove(record, y, Number(-1, 140), Number(-20, 99), ImageColour(Colour()));
        if (kind < 46)
            return (kind < 26 ? RecordXorBox : RecordBox)(
                record, OneIn(3) ? 0 : x, OneIn(8) ? 0 : y,
                OneIn(3) ? record->width : Number(-1, 60),
                OneIn(8) ? record->height : Number(-1, 30), ImageColour(Colour()));
        std::u16string text;
        for (int count = Number(0, 20); count > 0; --count)
            text += OneIn(8) ? kOthers[Number(0, 7)] : char16_t(Number(' ', '~'));
        const CellLook look = {Colour(), Colour(), int16_t(Number(1, 4)), !OneIn(5)};
        RecordCells(record, x, y, {text.data(), int(text.size()), look},
                    {Number(0, 14), Number(0, 16), Number(0, 22)});
    }

    std::mt19937 random;
    PaintRecord recorded;
};

// The second picture is looked at behind each call, so nothing of it is kept or left out.
TEST_F(RecordedDrawing, EqualsDrawingAtOnceWhateverIsDrawnAndWheneverOneLooks) {
    const unsigned first = std::random_device()();
    PaintRecord atOnce;
    for (unsigned seed = first; seed != first + 500; ++seed) {
        random.seed(seed);
        for (int step = 0, last = Number(0, 60); step <= last; ++step) {
            const bool resizes = step == 0 || OneIn(60);
            const std::mt19937 sameAgain = random;
            for (PaintRecord* record : {&atOnce, &recorded}) {
                random = sameAgain;
                if (resizes)
                    FitPicture(record, Number(20, 140), Number(20, 120), kScales[Number(0, 5)]);
                Draw(record);
                if (record == &atOnce) PictureOf(record);
            }
            if (step < last && !OneIn(25)) continue;
            ASSERT_EQ(PictureOf(&recorded), PictureOf(&atOnce)) << seed;
        }
    }
}

// What was drawn with a font stays when that is replaced or freed. Calls nest on a canvas.
TEST_F(RecordedDrawing, GlyphsAreTheToolkits) {
    OpenNumberedWindow(kMainWindow, 0, 0, 300, 200, "", kStandardWindowFlags);
    CanvasGadget(kTerminalCanvas, 0, 0, 9, 9, 0);
    for (const int scale : {1, 2}) {
        QImage plain(40 * scale, 900 * scale, QImage::Format_RGB32);
        plain.setDevicePixelRatio(scale);
        plain.fill(Qt::white);
        FitPicture(&FindCanvas(kTerminalCanvas)->record, 40, 900, scale);
        ResetCanvasPicture(kTerminalCanvas, 40, 900);
        ASSERT_TRUE(StartDrawing(kTerminalCanvas) && StartDrawing(kTerminalCanvas));
        StopDrawing();
        QPainter painter(&plain);
        for (int y = -5; y < 900; y += 18) {
            LoadNumberedFont(1, "Liberation Mono", Number(8, 15), kFontPlain);
            // Combining marks among them: their ink lies outside a box without a width.
            const QChar c = QChar(OneIn(2) ? Number('!', 0x17F) : Number(0x300, 0x36F));
            const char16_t text = c.unicode();
            const CellLook look = {Colour(), Colour(), int16_t(Number(1, 3)), true};
            DrawCells(12, y, {&text, 1, look}, {20, 22, 17});
            painter.setFont(*NumberedFont(look.font));
            const QFontMetrics metrics = painter.fontMetrics();
            const QColor paper(ImageColour(look.background));
            painter.fillRect(12, y, 22, 17, paper);
            painter.fillRect(12, y, metrics.horizontalAdvance(c), metrics.height(), paper);
            painter.setPen(QColor(ImageColour(look.foreground)));
            painter.drawText(12, y + metrics.ascent(), QString(c));
        }
        painter.end();
        StopDrawing();
        FreeNumberedFont(1);
        plain.setDevicePixelRatio(1);
        EXPECT_EQ(TerminalPicture(), plain) << scale;
        EXPECT_EQ(TextWidthOf(1, "W"), 0);
    }
}

}  // namespace
