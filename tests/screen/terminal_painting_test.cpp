// The painters against a plain one, and the list of lines.
#include <gtest/gtest.h>

#include <random>

#include "tests/screen/ScreenRig.h"
#include "ui/CanvasGadget.h"

namespace {

constexpr int kPlain = kDeviceList;  // a canvas here

void UseSettings(int cols, int rows, int scrollBack, bool dark) {
    TerminalSettings& settings = TerminalSettingsForTable();
    settings.cols = cols;
    settings.rows = rows;
    settings.scrollBack = scrollBack;
    settings.darkBackground = dark;
}

// Random use of the terminal. Each step is also painted at once on a second canvas, from
// the cells as they are stored: one by one, with nothing kept from the step before.
class TerminalPainting : public testing::Test {
  protected:
    TerminalPainting() {
        OpenScreenRig();
        CanvasGadget(kPlain, 0, 0, 9, 9, 0);
    }

    int Number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(random);
    }
    static int X(int column) { return (column - 1) * metrics.charWidth + 2; }
    static int Y(int row) { return (row - 1) * metrics.charHeight + 2; }

    static void Cell(int x, int y, const TerminalCell& cell, bool fill, int width) {
        uint32_t front = cell.attr & 16 ? cell.bg : cell.fg, back = cell.bg;
        if (cell.attr & 8) front = screen.dimColour;
        if (cell.attr & 4) std::swap(front, back);
        const int font = cell.attr & 1   ? metrics.boldFont
                         : cell.attr & 2 ? metrics.thirdFont
                                         : metrics.normalFont;
        const CellLook look = {front, back, static_cast<int16_t>(font), fill || cell.attr & 4};
        const CellRun run = {&cell.ch, 1, look};
        DrawCells(x, y, &run, 1, {0, width, metrics.charHeight});
    }
    // Past the last line held, that line stands again.
    static void Rows(int first, int last, bool fill) {
        const TerminalLine* line = nullptr;
        for (int row = std::max(first, 1); row <= last; ++row) {
            if (const TerminalLine* next = TerminalLineAt(screen.topLine + row)) line = next;
            for (int c = 1; c <= line->length; ++c)
                Cell(X(c), Y(row) - 2, line->cells[c], fill, metrics.charWidth + fill);
        }
    }
    static void Row(int x, int width) {
        DrawBox(x, Y(screen.cursorY), width, metrics.charHeight, screen.curBg);
    }
    static void Bar(int x, int y, uint32_t colour) {
        DrawBox(x, y + metrics.charHeight - 2, metrics.charWidth, 2, colour);
    }
    static void Fill(uint32_t colour) {
        DrawBox(0, 0, terminalSettings.canvasWidth, terminalSettings.canvasHeight, colour);
    }

    void Put() {
        std::u16string text;
        for (int count = Number(1, Number(0, 9) ? 12 : 300); count > 0; --count)
            text += static_cast<char16_t>(Number(0, 30) ? Number(' ', '~') : Number(0, 0xFFFF));
        int x = screen.cursorX;
        TerminalPutText(text.data(), static_cast<int>(text.size()));
        StartDrawing(kPlain);
        TerminalCell cell = {0, int16_t(screen.textAttr), screen.curBg, screen.curFg};
        for (const char16_t c : text) {
            cell.ch = c;
            Cell(X(x), Y(screen.cursorY), cell, true, metrics.charWidth + 1);
            x = std::min(x + 1, screen.cols);
        }
    }
    void Erase() {
        const int mode = Number(-1, 3), x = X(screen.cursorX);
        TerminalEraseLine(mode);
        StartDrawing(kPlain);
        if (mode == 0) Row(x, terminalSettings.canvasWidth - x);
        if (mode == 1) Row(0, x - 2);
        if (mode == 2) Row(0, terminalSettings.canvasWidth);
    }
    void Scroll(bool up) {
        const int asked = Number(0, 5) ? 1 : Number(-1, 12), n = std::max(asked, 0);
        up ? TerminalScrollUp(asked) : TerminalScrollDown(asked);
        StartDrawing(kPlain);
        if (n == 0) return;
        const int shift = n * metrics.charHeight, height = terminalSettings.canvasHeight;
        Bar(X(screen.cursorX), Y(screen.cursorY), screen.defaultBg);
        if (up) {
            MovePicture(shift + 2, height - shift - 1, 2, screen.defaultBg);
            Rows(screen.rows - n, screen.rows, true);
        } else {
            MovePicture(2, height - shift, 2 + shift, screen.defaultBg);
            Rows(1, screen.rows + n, true);
            DrawBox(0, 0, terminalSettings.canvasWidth, 2, screen.defaultBg);
        }
    }
    void Repaint() {
        TerminalRepaint();
        StartDrawing(kPlain);
        Fill(screen.defaultBg);
        Rows(1, screen.rows, false);
    }
    void Blink() {
        static bool lit = false, drawn = false;
        static int x = 0, y = 0;
        static uint32_t under = 0;
        NotifyCursorBlink();
        lit = !lit;
        StartDrawing(kPlain);
        if (drawn) Bar(x, y, under);
        x = X(screen.cursorX);
        y = Y(screen.cursorY);
        drawn = true;
        under = TerminalLineAt(screen.topLine + screen.cursorY)->cells[screen.cursorX].bg;
        Bar(x, y, lit && screen.cursorVisible ? screen.curFg : under);
    }
    void Rare() {
        const int kind = Number(0, 19);
        if (kind == 0) return Repaint();
        if (kind > 9) return Blink();
        if (kind > 1) return;
        StartDrawing(kPlain);
        Fill(screen.curBg);
        StopDrawing();
        ClearTerminal(kTerminalCanvas);
    }
    // Beyond the last column too, where the hex monitor writes.
    void Look() {
        static const int kAttributes[] = {0, 1, 2, 4, 8, 16, 28};
        static const uint32_t kColours[] = {0xFFFFFF, 0, 0x00CD00, 0xE10000};
        MoveTerminalCursor(Number(1, Number(0, 9) ? screen.cols : kLastColumn),
                           Number(1, screen.rows));
        if (Number(0, 1)) return;
        SetTextAttribute(kAttributes[Number(0, 6)]);
        SetCurrentColours(kColours[Number(0, 3)], kColours[Number(0, 3)]);
        SetCursorVisible(Number(0, 3) != 0);
    }
    void Step() {
        const int kind = Number(0, 8);
        if (kind < 2) return Look();
        if (kind < 4) return Put();
        if (kind < 7) return Scroll(kind > 4);
        kind == 7 ? Erase() : Rare();
    }

    std::mt19937 random;
    static const TerminalScreen& screen;
    static const TerminalMetrics& metrics;
};
const TerminalScreen& TerminalPainting::screen = terminalScreen;
const TerminalMetrics& TerminalPainting::metrics = terminalMetrics;

TEST_F(TerminalPainting, EqualsAPlainPainter) {
    const unsigned first = std::random_device()();
    for (unsigned seed = first; seed != first + 400 && !HasFatalFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        random.seed(seed);
        UseSettings(Number(1, 30), Number(1, 7), Number(0, 9), Number(0, 1));
        SetUpTerminal();
        LayoutMainWindow();
        ResetCanvasPicture(kPlain, terminalSettings.canvasWidth, terminalSettings.canvasHeight);
        for (Repaint(); Number(0, 99); Step()) {
            StopDrawing();
            const QImage plain = CanvasPicture(kPlain);  // makes the pixels
            if (Number(0, 30) > 0) continue;
            ASSERT_EQ(TerminalPicture(), plain);
        }
        StopDrawing();
        ASSERT_EQ(TerminalPicture(), CanvasPicture(kPlain));
    }
}

// Used again, a line is empty, beyond the last column too.
TEST_F(TerminalPainting, TheLatestLinesAreKept) {
    const auto contents = [](int element) {
        std::string text;
        for (const TerminalCell& cell : TerminalLineAt(element)->cells)
            if (cell.ch || cell.fg || cell.bg || cell.attr) text += static_cast<char>(cell.ch);
        return text;
    };
    UseSettings(20, 5, 100, true);
    SetUpTerminal();
    SetCurrentColours(0xFF, 0xFF00);
    for (int i = 0; i < 1000; ++i) {
        if (i == 800) SetScrollBackLimits(300, 256);
        MoveTerminalCursor(i % 3 ? 1 : 25 + i % 50, screen.cursorY);
        TerminalPrintLine(QString::number(i));
    }
    ASSERT_EQ(TerminalLineCount(), 306);
    for (int element = 0; element < 305; ++element) {
        const std::string n = std::to_string(element + 695);
        EXPECT_EQ(contents(element), (element + 695) % 3 ? n : n.substr(2) + n[0]);
    }
    EXPECT_EQ(contents(305), "");
    EXPECT_FALSE(TerminalLineAt(-1) || TerminalLineAt(306));
    EXPECT_EQ(screen.topLine + screen.topLimit, 600);
}

// The cell that nothing wrote at a line's end has background 0: black on white.
TEST_F(TerminalPainting, ARedrawnLineEndsInABlackCell) {
    UseSettings(20, 5, 10, false);
    SetUpTerminal();
    LayoutMainWindow();
    const auto pixel = [](int column, int row) {
        return TerminalPicture().pixel(X(column) + 1, Y(row) + 6);
    };
    Feed("\x1b[5;1Habc");
    EXPECT_EQ(pixel(4, 5), 0xFFFFFFFF);
    Feed("\n");
    EXPECT_EQ(pixel(4, 4), 0xFF000000);
    EXPECT_EQ(pixel(5, 4), 0xFFFFFFFF);
}

}  // namespace
