// The screen model and its painters against a plain terminal, and the looks that are meant
// although they seem to be slips.
#include <gtest/gtest.h>

#include <random>
#include <tuple>

#include "base/Numbers.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/VtParser.h"
#include "tests/screen/PlainTerminal.h"
#include "tests/screen/ScreenRig.h"
#include "ui/Drawing.h"
#include "ui/Gadgets.h"

namespace {

void UseSettings(int cols, int rows, int scrollBack, bool dark) {
    TerminalSettings& settings = TerminalSettingsForTable();
    settings.cols = cols;
    settings.rows = rows;
    settings.scrollBack = scrollBack;
    settings.darkBackground = dark;
}

bool SameCell(const TerminalCell& a, const TerminalCell& b) {
    return a.ch == b.ch && a.attr == b.attr && a.bg == b.bg && a.fg == b.fg;
}

void Compare(const PlainTerminal& plain) {
    const TerminalScreen &a = terminalScreen, &b = plain.state;
    ASSERT_EQ(std::tie(a.cursorX, a.cursorY, a.topLine, a.topLimit, a.curFg),
              std::tie(b.cursorX, b.cursorY, b.topLine, b.topLimit, b.curFg));
    ASSERT_EQ(TerminalLineCount(), a.rows + 1 + a.topLimit);
    for (int i = 0; i < TerminalLineCount(); ++i) {
        const TerminalLine &line = *TerminalLineAt(i), &other = plain.lines[i];
        ASSERT_EQ(line.length, other.length) << "element " << i;
        ASSERT_TRUE(std::equal(line.cells, line.cells + kLineCells, other.cells, SameCell)) << i;
    }
    ASSERT_EQ(TerminalLineAt(-1), nullptr);
    ASSERT_EQ(TerminalLineAt(TerminalLineCount()), nullptr);
    plain.picture.ExpectEqual(TerminalPicture());
}

class RandomUse {
  public:
    explicit RandomUse(unsigned seed) : random(seed) {}

    int Number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    }

    void Step(PlainTerminal* plain) {
        const int lines = Number(0, 5) ? 1 : Number(-1, 12);
        const int mode = Number(-1, 3);
        switch (Number(0, 8)) {
            case 0:
                return Move(plain);
            case 1:
                return Look(plain);
            case 2:
                TerminalEraseLine(mode);
                return plain->Erase(mode);
            case 3:
                TerminalScrollDown(lines);
                return plain->ScrollDown(std::max(lines, 0));
            case 4:
            case 5:
                TerminalScrollUp(lines);
                return plain->ScrollUp(std::max(lines, 0));
            case 6:
                return Rare(plain);
            default:
                return Put(plain);
        }
    }

  private:
    void Move(PlainTerminal* plain) {
        // Beyond the last column too, where the hex monitor writes.
        plain->state.cursorX = Number(1, Number(0, 9) ? plain->state.cols : kLastColumn);
        plain->state.cursorY = Number(1, plain->state.rows);
        MoveTerminalCursor(plain->state.cursorX, plain->state.cursorY);
    }

    void Look(PlainTerminal* plain) {
        static const int kAttributes[] = {0, 1, 2, 4, 8, 16, 28};
        static const uint32_t kColours[] = {0xFFFFFF, 0, 0x00CD00, 0xE10000};
        plain->state.textAttr = kAttributes[Number(0, 6)];
        plain->state.curFg = kColours[Number(0, 3)];
        plain->state.curBg = kColours[Number(0, 3)];
        plain->state.cursorVisible = Number(0, 3) != 0;
        SetTextAttribute(plain->state.textAttr);
        SetCurrentColours(plain->state.curFg, plain->state.curBg);
        SetCursorVisible(plain->state.cursorVisible);
    }

    void Rare(PlainTerminal* plain) {
        const int kind = Number(0, 19);
        if (kind == 0) TerminalRepaint(), plain->Repaint();
        if (kind == 1) ClearTerminal(kTerminalCanvas), plain->Clear();
        if (kind > 9) NotifyCursorBlink(), plain->Blink();
    }

    void Put(PlainTerminal* plain) {
        std::u16string text;
        for (int count = Number(1, Number(0, 9) ? 12 : 300); count > 0; --count) {
            text += static_cast<char16_t>(Number(0, 30) ? Number(' ', '~') : Number(0, 0xFFFF));
        }
        TerminalPutText(text.data(), static_cast<int>(text.size()));
        plain->Put(text);
    }

    std::mt19937 random;
};

TEST(TerminalPainting, EqualsAPlainTerminalInCellsAndPixels) {
    OpenScreenRig();
    PlainTerminal plain;
    const unsigned first = std::random_device()();
    for (unsigned seed = first; seed != first + 150 && !testing::Test::HasFatalFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomUse use(seed);
        UseSettings(use.Number(1, 30), use.Number(1, 7), use.Number(0, 9), use.Number(0, 1));
        SetUpTerminal();
        LayoutMainWindow();
        plain.TakeOver();
        for (int step = use.Number(1, 150); step > 0; --step) use.Step(&plain);
        Compare(plain);
    }
}

// A pixel of the row's box at a column, so many rows below the box's repaint y.
QRgb PixelAt(int column, int row, int below) {
    return TerminalPicture().pixel((column - 1) * terminalMetrics.charWidth + 3,
                                   (row - 1) * terminalMetrics.charHeight + below);
}

TEST(TerminalPainting, LooksThatAreMeant) {
    constexpr QRgb kBlackPixel = 0xFF000000, kWhitePixel = 0xFFFFFFFF;
    UseSettings(20, 5, 10, true);
    OpenScreenRig();
    const int height = terminalMetrics.charHeight;
    // A redrawn row stands two pixels higher than a written one, whose last two pixel rows
    // stay below it.
    Feed("\x1b[5;1H\x1b[7m  ");
    EXPECT_EQ(PixelAt(1, 5, 1), kBlackPixel);
    EXPECT_EQ(PixelAt(1, 5, 2), kWhitePixel);
    EXPECT_EQ(PixelAt(1, 5, height + 1), kWhitePixel);
    Feed("\n");
    EXPECT_EQ(PixelAt(1, 4, -1), kBlackPixel);
    EXPECT_EQ(PixelAt(1, 4, 0), kWhitePixel);
    EXPECT_EQ(PixelAt(1, 4, height + 1), kWhitePixel);
    EXPECT_EQ(PixelAt(1, 4, height + 2), kBlackPixel);
    // A full repaint draws the cells alone and takes those two rows away.
    TerminalRepaint();
    EXPECT_EQ(PixelAt(1, 4, height - 1), kWhitePixel);
    EXPECT_EQ(PixelAt(1, 4, height), kBlackPixel);
    // The cell that nothing wrote at a line's end has background 0: black on white.
    SwitchDarkBackground();
    Feed("\x1b[0m\x1b[5;1Habc");
    EXPECT_EQ(PixelAt(4, 5, 8), kWhitePixel);
    Feed("\n");
    EXPECT_EQ(PixelAt(4, 4, 8), kBlackPixel);
    EXPECT_EQ(PixelAt(5, 4, 8), kWhitePixel);
    // So is the cursor bar on such a cell, in both phases.
    for (int phase = 0; phase < 2; ++phase) {
        NotifyCursorBlink();
        EXPECT_EQ(PixelAt(1, 5, height), kBlackPixel) << phase;
    }
    Feed("\x1b[?25l ");
    for (int phase = 0; phase < 2; ++phase) {
        NotifyCursorBlink();
        EXPECT_EQ(PixelAt(2, 5, height), kBlackPixel) << phase;
    }
}

}  // namespace
