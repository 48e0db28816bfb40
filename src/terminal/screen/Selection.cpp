#include "terminal/screen/Selection.h"

#include <QString>
#include <algorithm>
#include <cstdint>
#include <utility>

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/drawing/Drawing.h"
#include "ui/windows/Clipboard.h"
#include "ui/windows/Notice.h"

namespace {

constexpr uint32_t kHighlight = 0x404040;  // red, green and blue 64
constexpr int kMargin = 2;                 // of the drawn cells, in pixels
constexpr int kCopiedNoticeMs = 2000;

// A pointer counts as no farther than this many cells from the first, either way.
constexpr int64_t kFarthestCell = 1 << 20;

// Columns and rows count from 0 here; a cell index is cols * row + column. A negative
// start means that no selection is under way.
struct Selection {
    int startColumn = -1, startRow = -1;
    int endColumn = -1, endRow = -1;
    int anchor = 0;  // cell index where the drag began
    int head = 0;    // cell index that the highlight has been brought to
    int last = 0;    // cell index of the last pointer position seen
};

Selection selection;

bool UnderWay() {
    return selection.startColumn >= 0 && selection.startRow >= 0;
}

struct CellRange {
    int first = 0, last = 0;
};

// Brings the head to cell p and gives the cells to flip, by the first rule that fits. The anchor
// cell is never lit by a drag that stays on one side of it, and a pointer that comes back exactly
// onto the anchor from below flips cell 0: both are meant.
CellRange MoveHead(int p) {
    const int h = selection.head;
    const int a = selection.anchor;
    CellRange range;
    if (p > h && p > a) {
        range = {h + 1, p};
    } else if (p < h && p >= a) {
        range = {p + 1, h};
    } else if (p < h && p <= a) {
        range = {p, h - 1};
    } else if (p > h && p < a) {
        range = {h, p - 1};
    } else {
        return range;  // the head stays where it was
    }
    selection.head = p;
    return range;
}

void SetEnds() {
    int first = selection.anchor;
    int last = selection.head;
    if (first > last) std::swap(first, last);
    const int cols = terminalScreen.cols;
    selection.startColumn = first % cols;
    selection.startRow = first / cols;
    selection.endColumn = last % cols;
    selection.endRow = last / cols;
}

// Cells more than a row outside the picture show nothing of their boxes.
void FlipCells(const CellRange& range) {
    if (!StartDrawing(kTerminalCanvas)) return;
    const int cols = terminalScreen.cols;
    const int width = terminalMetrics.charWidth;
    const int height = terminalMetrics.charHeight;
    const int first = std::max(range.first, -2 * cols);
    const int last = std::min(range.last, (terminalScreen.rows + 2) * cols);
    for (int i = first; i <= last; ++i) {
        DrawXorBox(width * (i % cols) + kMargin, i / cols * height + kMargin, width, height,
                   kHighlight);
    }
    StopDrawing();
}

// Columns and rows outside the canvas count as they come: one past the right edge runs
// into the next row.
int CellIndex(int column, int row) {
    const int64_t p = static_cast<int64_t>(terminalScreen.cols) * row + column;
    return static_cast<int>(std::clamp(p, -kFarthestCell, kFarthestCell));
}

void BeginSelection(int column, int row) {
    const int p = CellIndex(column, row);
    selection = {column, row, column, row, p, p, p};
}

// A pointer that goes in front of the first cell makes the start negative, which ends the
// selection; its highlight stays lit until the next repaint.
void FollowPointer(int p) {
    if (p == selection.last) return;
    selection.last = p;
    CellRange range = MoveHead(p);
    if (range.first > range.last) std::swap(range.first, range.last);
    SetEnds();
    FlipCells(range);
}

// An empty cell adds nothing, so blanks that were never written vanish. On the last row the
// end does not depend on the line's length: old cells beyond it are read.
void AppendRow(QString* text, const TerminalLine& line, int row) {
    if (line.length <= 0) return;
    const int first = row == selection.startRow + 1 ? selection.startColumn + 1 : 1;
    const int end = row == selection.endRow + 1 ? selection.endColumn + 1 : line.length;
    for (int column = first; column <= std::min(end, kLastColumn); ++column) {
        if (line.cells[column].ch) *text += QChar(line.cells[column].ch);
    }
}

// Of a selection that ends below the last line held, each row beyond reads that line again.
QString SelectedText() {
    QString text;
    const TerminalLine* line = nullptr;
    for (int row = selection.startRow + 1; row <= selection.endRow + 1; ++row) {
        if (const TerminalLine* next = TerminalLineAt(terminalScreen.topLine + row)) line = next;
        if (line) AppendRow(&text, *line, row);
        // Rows are joined by CR alone, whatever the line ending says.
        if (row <= selection.endRow) text += '\r';
    }
    return text;
}

}  // namespace

void ExtendSelection() {
    if (terminalMetrics.charWidth <= 0 || terminalMetrics.charHeight <= 0) return;
    // The two pixels of margin in the drawing are not taken off.
    const int column =
        EventAttribute(kTerminalCanvas, kAttributeMouseX) / terminalMetrics.charWidth;
    const int row = EventAttribute(kTerminalCanvas, kAttributeMouseY) / terminalMetrics.charHeight;
    if (!UnderWay()) return BeginSelection(column, row);
    FollowPointer(CellIndex(column, row));
}

void FinishSelection() {
    if (!UnderWay()) return;
    const QString text = SelectedText();
    TerminalRepaint();
    selection.startColumn = selection.startRow = -1;
    QString test = TrimBlanks(text);
    test.remove('\n').remove('\r');
    // The setting is a switch for the copy itself, not only for the notice.
    if (test.isEmpty() || !terminalSettings.adviseCopied) return;
    SetClipboardText(text);
    ShowNotice("Selection copied to clipboard", kCopiedNoticeMs);
}
