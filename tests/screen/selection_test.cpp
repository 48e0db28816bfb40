// Selecting with the mouse: which cells light up on the way, and what is copied.
#include <gtest/gtest.h>

#include "terminal/screen/Selection.h"
#include "terminal/screen/TerminalFonts.h"
#include "tests/screen/ScreenRig.h"
#include "tests/support/StartState.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/drawing/PBCanvasWidget.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/windows/Clipboard.h"
#include "ui/windows/Windows.h"

namespace {

const bool startState = KeepStartState(PutBackScreen);

constexpr int kCols = 20;
constexpr int kRows = 5;

using Places = std::vector<std::pair<int, int>>;  // column and row, from 0

class SelectionTest : public testing::Test {
  protected:
    void SetUp() override {
        TerminalSettingsForTable().cols = kCols;
        TerminalSettingsForTable().rows = kRows;
        OpenScreenRig();
        Feed("abcdefghijklmnopqrst\nuvwx\x1b[2;10Hyz\n\n0123");
    }
    static void PointTo(int column, int row) {
        CanvasEventData data;
        data.x = column * terminalMetrics.charWidth + (column < 0 ? -1 : 1);
        data.y = row * terminalMetrics.charHeight + (row < 0 ? -1 : 1);
        RaiseCanvasEvent(FindCanvas(kTerminalCanvas), kTypeMouseMove, kEventUnmerged, data);
        while (WaitForEvent(0) != kNoEvent && EventType() != kTypeMouseMove) {
        }
        ExtendSelection();
    }
    // The copied text; "untouched" for nothing.
    static QString Finish() {
        SetClipboardText("untouched");
        FinishSelection();
        return ClipboardText();
    }
    static QString Select(const Places& places) {
        for (const auto& [column, row] : places) PointTo(column, row);
        return Finish();
    }
    // Cells whose picture differs from `before`.
    static std::vector<int> Lit(const QImage& before) {
        const QImage now = TerminalPicture();
        std::vector<int> cells;
        for (int cell = 0; cell < kCols * kRows; ++cell) {
            const int x = cell % kCols * terminalMetrics.charWidth + 4;
            const int y = cell / kCols * terminalMetrics.charHeight + 4;
            const QRgb changed = now.pixel(x, y) ^ before.pixel(x, y);
            if (changed) cells.push_back(cell);
            EXPECT_TRUE(changed == 0 || changed == 0x404040u) << cell;
        }
        return cells;
    }
};

TEST_F(SelectionTest, LitCellsAndCopiedTextOfEachPath) {
    const struct {
        std::vector<int> path;  // cell indexes
        std::vector<int> lit;
        QString copied;
    } cases[] = {
        {{5, 8, 6}, {6}, "fg"},
        {{5, 8, 8, 5}, {}, "f"},
        {{5, 3, 5, 4}, {0, 4}, "ef"},
        {{5, 8, 3}, {3, 4, 5, 8}, "def"},      // over the anchor in one step
        {{5, 3, 8}, {3, 5, 6, 7, 8}, "fghi"},  // and back
        {{18, 22}, {19, 20, 21, 22}, "st\ruvw"},
    };
    for (const auto& each : cases) {
        TerminalRepaint();
        const QImage before = TerminalPicture();
        for (const int cell : each.path) PointTo(cell % kCols, cell / kCols);
        EXPECT_EQ(Lit(before), each.lit) << each.path[1];
        EXPECT_EQ(Finish(), each.copied);
        EXPECT_EQ(Lit(before), std::vector<int>());
    }
    EXPECT_TRUE(WindowIsOpen(kNoticeWindow));
}

TEST_F(SelectionTest, TextOfRows) {
    EXPECT_EQ(Select({}), "untouched");
    EXPECT_EQ(Select({{5, 3}, {3, 4}}), "untouched");  // line ends alone
    Feed("\x1b[5;1H     ");
    EXPECT_EQ(Select({{0, 4}, {4, 4}}), "untouched");
    EXPECT_FALSE(WindowIsOpen(kNoticeWindow));
    // A row up to its length, holes closed up, rows joined by CR alone; the last row up to
    // where the pointer was.
    EXPECT_EQ(Select({{18, 0}, {19, 0}, {1, 3}}), "st\ruvwxyz\r\r01");
    EXPECT_EQ(Select({{15, 0}, {kCols + 2, 0}}), "pqrst\ruvw");  // past the right edge
    EXPECT_EQ(Select({{0, 3}}), "0");                            // one move, one cell
    TerminalSettingsForTable().adviseCopied = 0;
    EXPECT_EQ(Select({{0, 0}, {4, 0}}), "untouched");
}

TEST_F(SelectionTest, OutsideTheCanvasAndScrolledBack) {
    // In front of the first cell the selection is gone; one begins where it comes back.
    EXPECT_EQ(Select({{5, 1}, {3, 0}, {3, -1}}), "untouched");
    EXPECT_EQ(Select({{-1, 0}, {5, 1}, {3, -1}, {1, 0}, {3, 0}}), "bcd");
    EXPECT_EQ(Select({{0, 0}, {-(1 << 24), -(1 << 24)}}), "untouched");
    // Below the last line held, that line is read again.
    Feed("\x1b[5;1Hlast");
    EXPECT_EQ(Select({{0, 4}, {1, 6}}), "last\rlast\rla");
    EXPECT_EQ(Select({{0, 4}, {1 << 24, 1 << 24}}).left(10), "last\rlast\r");
    SetScrollBackLimits(100, 3);  // what bounds a copy does not bound a selection
    Feed("\n\n\n");
    EXPECT_EQ(Select({{0, 0}, {9, 0}}), "0123");
    TerminalScrollDown(100);
    EXPECT_EQ(Select({{0, 0}, {5, 0}}), "abcdef");
}

}  // namespace
