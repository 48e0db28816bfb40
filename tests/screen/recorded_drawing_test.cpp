// Recorded drawing gives, pixel for pixel, what drawing at once gives.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "base/Numbers.h"
#include "tests/screen/PlainPicture.h"
#include "ui/CanvasAccess.h"
#include "ui/CanvasGadget.h"
#include "ui/CanvasImage.h"
#include "ui/Fonts.h"
#include "ui/PaintRecord.h"
#include "ui/Windows.h"

namespace {

// Random drawing, done both ways. Nothing that fills the whole picture, and so empties a
// record, is drawn unless `fills` is set.
class BothWays {
  public:
    BothWays(unsigned seed, bool fillsAll) : fills(fillsAll), random(seed), plain(1, 1) {
        width = Number(20, 140);
        height = Number(fills ? 20 : 60, 120);
        plain = PlainPicture(width, height);
        ResetCanvasPicture(kTerminalCanvas, width, height);
        StartDrawing(kTerminalCanvas);
    }
    ~BothWays() { StopDrawing(); }

    int Number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    }
    bool OneIn(int n) { return Number(1, n) == 1; }

    void Step() {
        const int kind = Number(0, 99);
        if (kind < 26) {
            Box(kind < 6);
        } else if (kind < 75) {
            Cells();
        } else if (kind < 85) {
            CellsAgain();
        } else {
            Move();
        }
    }

    void Compare() { plain.ExpectEqual(CanvasImageOf(kTerminalCanvas)->Picture()); }

    void Resize() {
        width = Number(20, 140);
        height = Number(20, 120);
        CanvasImageOf(kTerminalCanvas)->Resize(width, height);
        plain.Resize(width, height);
    }

  private:
    struct DrawnCells {
        std::vector<char16_t> text;
        std::vector<CellRun> runs;
        CellBoxes boxes;
        int x = 0;
        KeptCells kept;
    };

    uint32_t Colour() {
        static const uint32_t kColours[] = {0, 0xFFFFFF, 0x0000CD, 0xE10000, 0xFF123456};
        return OneIn(6) ? static_cast<uint32_t>(Number(0, 0xFFFFFF)) : kColours[Number(0, 4)];
    }

    char16_t Character() {
        static const char16_t kOthers[] = {0, 7, 0xE9, 0x301, 0x4E2D, 0xD83D, 0xFFFF, 0x2588};
        return OneIn(8) ? kOthers[Number(0, 7)] : static_cast<char16_t>(Number(' ', '~'));
    }

    void Box(bool inverts) {
        const int x = OneIn(3) ? 0 : Number(-10, width);
        const int y = fills && OneIn(8) ? 0 : Number(fills ? -10 : 1, height);
        const int w = OneIn(3) ? width : Number(-1, 60);
        const int h = OneIn(8) ? height : Number(-1, 30);
        const uint32_t colour = Colour();
        (inverts ? DrawXorBox : DrawBox)(x, y, w, h, colour);
        if (w > 0 && h > 0) plain.Box(x, y, w, h, colour, inverts);
    }

    // A row as a terminal draws it, or one of strange measures.
    void Cells() {
        DrawnCells cells;
        cells.boxes = OneIn(3) ? CellBoxes{Number(0, 14), Number(0, 16), Number(0, 22)}
                               : CellBoxes{9, OneIn(4) ? 9 : 10, 16};
        cells.x = OneIn(3) ? Number(-20, width + 5) : 2;
        for (int i = 0; i < 40; ++i) cells.text.push_back(Character());
        for (int at = 0, runs = Number(1, 4); runs > 0; --runs) {
            const int count = Number(0, 9);
            const int16_t font = static_cast<int16_t>(Number(1, 4));
            cells.runs.push_back(
                {cells.text.data() + at, count, {Colour(), Colour(), font, !OneIn(5)}});
            at += count;
        }
        const int runs = static_cast<int>(cells.runs.size()), y = RowY();
        cells.kept = DrawCells(cells.x, y, cells.runs.data(), runs, cells.boxes);
        plain.Cells(cells.x, y, cells.runs.data(), runs, cells.boxes);
        if (drawn.size() < 8) drawn.emplace_back();
        std::swap(drawn[Number(0, static_cast<int>(drawn.size()) - 1)], cells);
    }

    void CellsAgain() {
        if (drawn.empty()) return;
        const DrawnCells& cells = drawn[Number(0, static_cast<int>(drawn.size()) - 1)];
        const int runs = static_cast<int>(cells.runs.size()), y = RowY();
        if (!DrawCellsAgain(y, cells.kept)) return;
        plain.Cells(cells.x, y, cells.runs.data(), runs, cells.boxes);
    }

    // The strips of a terminal that scrolls by a few rows either way, or any other.
    void Move() {
        const uint32_t colour = Colour();
        const int shift = Number(1, 3) * 16;
        int top = shift + 2, stripHeight = height - shift - 1, target = 2;
        if (fills && OneIn(3)) {
            top = Number(-20, height);
            stripHeight = Number(-1, height + 20);
            target = Number(-20, height);
        } else if (OneIn(2)) {
            top = 2;
            stripHeight = height - shift;
            target = 2 + shift;
        }
        MovePicture(top, stripHeight, target, colour);
        plain.Move(top, stripHeight, target, colour);
    }

    int RowY() { return Number(-1, height / 16) * 16 + (OneIn(2) ? 2 : 0); }

    bool fills;
    std::mt19937 random;
    int width = 1, height = 1;
    PlainPicture plain;
    std::vector<DrawnCells> drawn;
};

class RecordedDrawing : public testing::Test {
  protected:
    void SetUp() override {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 200, "", kStandardWindowFlags);
        CanvasGadget(kTerminalCanvas, 0, 0, 100, 100, 0);
        // Number 4 stays unknown. The third is proportional and larger than its cells.
        LoadNumberedFont(1, "Liberation Mono", 9, kFontPlain);
        LoadNumberedFont(2, "Liberation Mono", 9, kFontBold);
        LoadNumberedFont(3, "Liberation Sans", 14, kFontPlain);
    }
};

TEST_F(RecordedDrawing, EqualsDrawingAtOnceWhateverIsDrawnAndWheneverOneLooks) {
    const unsigned first = std::random_device()();
    for (unsigned seed = first; seed != first + 2000 && !HasFatalFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        BothWays both(seed, true);
        for (int step = both.Number(1, 60); step > 0; --step) {
            both.Step();
            if (both.OneIn(25)) both.Compare();
            if (both.OneIn(60)) both.Resize();
        }
        both.Compare();
    }
}

// A full record drops what cannot be seen, or becomes pixels: of too many operations, of
// too many spans, of too much text.
TEST_F(RecordedDrawing, EqualsDrawingAtOnceBeyondTheBoundsOfARecord) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
        BothWays both(seed, false);
        const PaintRecord& record = CanvasImageOf(kTerminalCanvas)->Record();
        size_t most = 0;
        while (record.operations.size() >= most) {
            most = record.operations.size();
            both.Step();
        }
        EXPECT_LE(most, static_cast<size_t>(kMostPaintOperations));
        both.Compare();
    }
    const std::u16string text(19, 'x');
    const CellRun run = {text.data(), 19, {0xFF, 0xFF00, 1, true}};
    const CellRun part = {text.data(), 7, {0xFF, 0xFF00, 1, true}};
    const CellRun parts[] = {part, part, part};
    for (const bool spans : {true, false}) {
        ResetCanvasPicture(kTerminalCanvas, 200, 60);
        ASSERT_TRUE(StartDrawing(kTerminalCanvas));
        DrawBox(20, 40, 30, 10, 0xFF);
        for (int i = 0; i < 30000; ++i)
            DrawCells(2, 2, spans ? parts : &run, spans ? 3 : 1, {9, 10, 16});
        StopDrawing();
        PlainPicture plain(200, 60);
        plain.Box(20, 40, 30, 10, 0xFF);
        plain.Cells(2, 2, spans ? parts : &run, spans ? 3 : 1, {9, 10, 16});
        plain.ExpectEqual(CanvasPicture(kTerminalCanvas));
    }
}

// A font that is freed or replaced leaves what was drawn with it as it was.
TEST_F(RecordedDrawing, KeepsTheLookOfAFontThatIsReplaced) {
    const CellRun run = {u"Wg@", 3, {0xFFFFFF, 0, 1, true}};
    PlainPicture plain(100, 60);
    ResetCanvasPicture(kTerminalCanvas, 100, 60);
    ASSERT_TRUE(StartDrawing(kTerminalCanvas));
    int y = 0;
    for (const int size : {9, 20, 12}) {
        LoadNumberedFont(1, "Liberation Mono", size, kFontPlain);
        DrawCells(2, y, &run, 1, {9, 10, 16});
        plain.Cells(2, y, &run, 1, {9, 10, 16});
        y += 20;
    }
    StopDrawing();
    FreeNumberedFont(1);
    plain.ExpectEqual(CanvasPicture(kTerminalCanvas));
    EXPECT_EQ(TextWidthOf(1, "W"), 0);
}

TEST_F(RecordedDrawing, OpensOneCanvasAtATimeAndNestsOnIt) {
    CanvasGadget(kFrameCanvas, 0, 0, 50, 50, 0);
    EXPECT_FALSE(StartDrawing(kTerminalScrollBar));
    EXPECT_TRUE(StartDrawing(kTerminalCanvas) && StartDrawing(kTerminalCanvas));
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(StartDrawing(kFrameCanvas));
        StopDrawing();
    }
    EXPECT_TRUE(StartDrawing(kFrameCanvas));
}

}  // namespace
