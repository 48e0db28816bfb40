#include "terminal/screen/Selection.h"

#include <QString>
#include <cstdint>
#include <utility>

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "ui/DragDrop.h"
#include "ui/Drawing.h"
#include "ui/InterfaceEvent.h"
#include "ui/Notice.h"

namespace {

constexpr uint32_t kHighlight = 0x404040;  // red, green and blue 64
constexpr int kMargin = 2;                 // of the drawn cells, in pixels
constexpr int kCopiedNoticeMs = 2000;

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

bool UnderWay() { return selection.startColumn >= 0 && selection.startRow >= 0; }

struct CellRange {
    int first = 0, last = 0;
};

// The cells to flip when the pointer goes from the head to cell p, by the first rule that
// fits. The anchor cell is never lit by a drag that stays on one side of it, and a pointer
// that comes back exactly onto the anchor from below flips cell 0: both are meant.
CellRange FlipRange(int p) {
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

void FlipCells(const CellRange& range) {
    if (!StartDrawing(kTerminalCanvas)) return;
    const int width = terminalMetrics.charWidth;
    const int height = terminalMetrics.charHeight;
    for (int i = range.first; i <= range.last; ++i) {
        DrawXorBox(width * (i % terminalScreen.cols) + kMargin,
                   i / terminalScreen.cols * height + kMargin, width, height, kHighlight);
    }
    StopDrawing();
}

void BeginSelection(int column, int row) {
    const int p = terminalScreen.cols * row + column;
    selection = {column, row, column, row, p, p, p};
}

// An empty cell adds nothing, so blanks that were never written vanish. On the last row the
// end does not depend on the line's length: old cells beyond it are read.
void AppendRow(QString* text, int row) {
    const TerminalLine* line = TerminalLineAt(terminalScreen.topLine + row);
    if (!line || line->length <= 0) return;
    const int first = row == selection.startRow + 1 ? selection.startColumn + 1 : 1;
    int last = row == selection.endRow + 1 ? selection.endColumn + 1 : line->length;
    if (last > kLastColumn) last = kLastColumn;
    for (int column = first; column <= last; ++column) {
        if (line->cells[column].ch) *text += QChar(line->cells[column].ch);
    }
}

QString SelectedText() {
    QString text;
    for (int row = selection.startRow + 1; row <= selection.endRow + 1; ++row) {
        AppendRow(&text, row);
        // Rows are joined by CR alone, whatever the line ending says.
        if (row <= selection.endRow) text += '\r';
    }
    return text;
}

}  // namespace

void ExtendSelection() {
    if (terminalMetrics.charWidth <= 0 || terminalMetrics.charHeight <= 0) return;
    // The two pixels of margin in the drawing are not taken off.
    const int column = EventAttribute(kTerminalCanvas, kAttributeMouseX) / terminalMetrics.charWidth;
    const int row = EventAttribute(kTerminalCanvas, kAttributeMouseY) / terminalMetrics.charHeight;
    if (!UnderWay()) return BeginSelection(column, row);
    // Held inside the canvas's cells, so that a pointer dragged far outside flips a bounded
    // number of them.
    const int cells = terminalScreen.cols * terminalScreen.rows;
    int p = terminalScreen.cols * row + column;
    p = p < 0 ? 0 : p > 2 * cells ? 2 * cells : p;
    if (p == selection.last) return;
    selection.last = p;
    CellRange range = FlipRange(p);
    if (range.first > range.last) std::swap(range.first, range.last);
    SetEnds();
    FlipCells(range);
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
