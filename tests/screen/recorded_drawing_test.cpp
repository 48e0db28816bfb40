// Recorded drawing gives the pixels that drawing at once gives, and those are the toolkit's.
#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QPainter>
#include <functional>
#include <random>
#include <vector>

#include "tests/screen/ScreenRig.h"
#include "ui/CanvasAccess.h"
#include "ui/CanvasGadget.h"
#include "ui/CanvasImage.h"
#include "ui/FontTable.h"
#include "ui/Fonts.h"
#include "ui/PaintRecord.h"
#include "ui/Windows.h"

namespace {

// The second canvas is looked at after each call, so nothing of it is kept or left out.
constexpr int kRecorded = kTerminalCanvas, kAtOnce = kFrameCanvas;

void On(int canvas, const std::function<void()>& draw) {
    ASSERT_TRUE(StartDrawing(canvas));
    draw();
    StopDrawing();
    if (canvas == kAtOnce) CanvasPicture(canvas);
}

void OnBoth(const std::function<void()>& draw) {
    for (const int canvas : {kAtOnce, kRecorded}) On(canvas, draw);
}

struct DrawnCells {
    std::u16string text;
    std::vector<CellRun> runs;
    CellBoxes boxes;
    int x = 0;
    KeptCells kept;
    KeptCells Draw(int y) const {
        return DrawCells(x, y, runs.data(), static_cast<int>(runs.size()), boxes);
    }
};

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
    int RowY() { return Number(-1, height / 16) * 16 + (OneIn(2) ? 2 : 0); }

    void Resize(bool anew) {
        width = Number(20, 140);
        height = Number(20, 120);
        for (const int canvas : {kRecorded, kAtOnce}) {
            if (anew) ResetCanvasPicture(canvas, width, height);
            CanvasImageOf(canvas)->Resize(width, height);
        }
    }
    void Box(bool inverts) {
        const int x = OneIn(3) ? 0 : Number(-10, width), y = OneIn(8) ? 0 : Number(-10, height);
        const int w = OneIn(3) ? width : Number(-1, 60), h = OneIn(8) ? height : Number(-1, 30);
        const uint32_t colour = Colour();
        OnBoth([=] { (inverts ? DrawXorBox : DrawBox)(x, y, w, h, colour); });
    }
    // A row as a terminal draws it, or one of strange measures.
    void Cells() {
        static const char16_t kOthers[] = {0, 7, 0xE9, 0x301, 0x4E2D, 0xD83D, 0xFFFF, 0x2588};
        DrawnCells& cells = drawn[Number(0, 7)];
        cells = DrawnCells();
        cells.boxes = {9, OneIn(4) ? 9 : 10, 16};
        if (OneIn(3)) cells.boxes = {Number(0, 14), Number(0, 16), Number(0, 22)};
        cells.x = OneIn(3) ? Number(-20, width + 5) : 2;
        for (int i = 0; i < 40; ++i)
            cells.text += OneIn(8) ? kOthers[Number(0, 7)] : char16_t(Number(' ', '~'));
        for (int at = 0, runs = Number(1, 4); runs > 0; --runs, at += 9) {
            const int16_t font = static_cast<int16_t>(Number(1, 4));
            const CellLook look = {Colour(), Colour(), font, !OneIn(5)};
            cells.runs.push_back({cells.text.data() + at, Number(0, 9), look});
        }
        OnBoth([&, y = RowY()] { cells.kept = cells.Draw(y); });
    }
    void CellsAgain() {
        const DrawnCells& cells = drawn[Number(0, 7)];
        const int y = RowY();
        bool held = false;
        On(kRecorded, [&] { held = DrawCellsAgain(y, cells.kept); });
        if (held) On(kAtOnce, [&] { cells.Draw(y); });
    }
    // The strips of a terminal that scrolls by a few rows either way, or any other.
    void Move() {
        const int shift = Number(1, 3) * 16;
        int top = shift + 2, strip = height - shift - 1, target = 2;
        if (OneIn(2)) top = 2, strip = height - shift, target = 2 + shift;
        if (OneIn(3)) top = Number(-20, height), strip = Number(-1, 140), target = Number(-20, 99);
        OnBoth([=, colour = Colour()] { MovePicture(top, strip, target, colour); });
    }
    void Step() {
        const int kind = Number(0, 99);
        if (kind < 26) return Box(kind < 6);
        if (kind < 75) return Cells();
        return kind < 85 ? CellsAgain() : Move();
    }
    static void Compare() { ASSERT_EQ(CanvasPicture(kRecorded), CanvasPicture(kAtOnce)); }

    std::mt19937 random;
    int width = 1, height = 1;
    DrawnCells drawn[8];
};

TEST_F(RecordedDrawing, EqualsDrawingAtOnceWhateverIsDrawnAndWheneverOneLooks) {
    const unsigned first = std::random_device()();
    for (unsigned seed = first; seed != first + 1500 && !HasFatalFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        random.seed(seed);
        Resize(true);
        for (int step = Number(1, 60); step > 0; --step) {
            Step();
            if (OneIn(25)) Compare();
            if (OneIn(60)) Resize(false);
        }
        Compare();
    }
}

// A full record drops what cannot be seen, or becomes pixels: of too many operations, all
// in sight or not, of too many spans, of too much text.
TEST_F(RecordedDrawing, EqualsDrawingAtOnceBeyondTheBoundsOfARecord) {
    const CellLook look = {0xFF, 0xFF00, 1, true};
    const CellRun runs[] = {{u"1234567", 7, look}, {u"7", 1, look}, {u"abcdefghijklmno", 15, look}};
    const std::function<void(int i)> kinds[] = {
        [](int i) { DrawBox(1 + i % 90, i % 50, 30, 9, 77U * i); },
        [](int i) { DrawXorBox(i % 70, i % 50, 1, 1, 77U * i); },
        [&](int i) {
            DrawCells(2, i % 9, runs, 3, {9, 10, 16});
        },
        [&](int i) {
            DrawCells(i % 5, 2, runs + 2, 1, {9, 10, 16});
        },
    };
    for (const auto& draw : kinds) {
        for (const int canvas : {kRecorded, kAtOnce}) ResetCanvasPicture(canvas, 150, 60);
        for (int i = 0; i < 36000; ++i) OnBoth([&] { draw(i); });
        const PaintRecord& record = CanvasImageOf(kRecorded)->Record();
        EXPECT_LE(record.operations.size(), size_t(kMostPaintOperations));
        EXPECT_LE(record.spans.size(), size_t(kMostPaintSpans));
        EXPECT_LE(record.text.size(), size_t(kMostPaintText));
        Compare();
    }
}

QColor ColourOf(uint32_t bgr) {
    return QColor(bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF);
}

// A glyph on its box.
void DrawGlyph(QPainter& painter, int x, int y, const CellLook& look, char16_t c) {
    const QFontMetrics metrics(*NumberedFont(look.font));
    painter.fillRect(x, y, metrics.horizontalAdvance(QChar(c)), metrics.height(),
                     ColourOf(look.background));
    painter.setFont(*NumberedFont(look.font));
    painter.setPen(ColourOf(look.foreground));
    painter.drawText(x, y + metrics.ascent(), QString(QChar(c)));
}

// What was drawn with a font stays when that is replaced or freed.
TEST_F(RecordedDrawing, BoxesGlyphsAndMovesAreTheToolkits) {
    QImage plain(80, 900, QImage::Format_RGB32);
    plain.fill(Qt::white);
    ResetCanvasPicture(kRecorded, 80, 900);
    ASSERT_TRUE(StartDrawing(kRecorded));
    QPainter painter(&plain);
    for (int y = -5; y < 900; y += 18) {
        LoadNumberedFont(1, "Liberation Mono", Number(8, 15), kFontPlain);
        // Combining marks among them: their ink lies outside a box without a width.
        const char16_t c =
            static_cast<char16_t>(OneIn(2) ? Number('!', 0x17F) : Number(0x300, 0x36F));
        const CellLook look = {uint32_t(Number(0, 0xFFFFFF)), uint32_t(Number(0, 0xFFFFFF)),
                               static_cast<int16_t>(Number(1, 3)), true};
        const CellRun run = {&c, 1, look};
        DrawCells(12, y, &run, 1, {20, 22, 17});
        painter.fillRect(12, y, 22, 17, ColourOf(look.background));
        DrawGlyph(painter, 12, y, look, c);
        DrawBox(30, y, 30, 10, look.foreground);
        painter.fillRect(30, y, 30, 10, ColourOf(look.foreground));
        DrawXorBox(40, y + 5, 60, 10, look.background);
        painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        painter.fillRect(40, y + 5, 60, 10, ColourOf(look.background));
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.end();
    MovePicture(30, 700, 50, 0xCD);
    StopDrawing();
    FreeNumberedFont(1);
    const QImage strip = plain.copy(0, 30, 80, 700);
    plain.fill(ColourOf(0xCD));
    QPainter(&plain).drawImage(0, 50, strip);
    EXPECT_EQ(CanvasPicture(kRecorded), plain);
    EXPECT_EQ(TextWidthOf(1, "W"), 0);
}

TEST_F(RecordedDrawing, OpensOneCanvasAtATimeAndNestsOnIt) {
    EXPECT_FALSE(StartDrawing(kTerminalScrollBar));
    EXPECT_TRUE(StartDrawing(kRecorded) && StartDrawing(kRecorded));
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(StartDrawing(kAtOnce));
        StopDrawing();
    }
    EXPECT_TRUE(StartDrawing(kAtOnce));
}

}  // namespace
