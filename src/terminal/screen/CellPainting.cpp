#include "terminal/screen/CellPainting.h"

#include <utility>

#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSizing.h"

namespace {

int16_t FontOf(int attribute) {
    const int font = attribute & kAttributeBold        ? terminalMetrics.boldFont
                     : attribute & kAttributeThirdFont ? terminalMetrics.thirdFont
                                                       : terminalMetrics.normalFont;
    return static_cast<int16_t>(font);
}

bool LookAlike(const TerminalCell& a, const TerminalCell& b) {
    return a.attr == b.attr && a.bg == b.bg && a.fg == b.fg;
}

// The cells of a line up to its length, as runs of one look.
struct RowRuns {
    char16_t text[kLineCells];
    CellRun runs[kLineCells];
    int count = 0;

    void Gather(const TerminalLine& line, bool fillAll) {
        count = 0;
        for (int column = 1; column <= line.length;) {
            const TerminalCell& first = line.cells[column];
            CellRun& run = runs[count++];
            run.text = text + column;
            SetLook(&run.look, first.attr, first.fg, first.bg);
            run.look.fillBox = fillAll || (first.attr & kAttributeInverse);
            const int start = column;
            while (column <= line.length && LookAlike(line.cells[column], first)) {
                text[column] = line.cells[column].ch;
                ++column;
            }
            run.count = column - start;
        }
    }
};

RowRuns row;  // of the row that is being drawn

}  // namespace

int ColumnX(int column) {
    return (column - 1) * terminalMetrics.charWidth + kCanvasMargin;
}

int WritingY(int screenRow) {
    return (screenRow - 1) * terminalMetrics.charHeight + kCanvasMargin;
}

int RepaintY(int screenRow) {
    return (screenRow - 1) * terminalMetrics.charHeight;
}

void SetLook(CellLook* look, int attribute, uint32_t foreground, uint32_t background) {
    if (attribute & kAttributeHidden) foreground = background;
    if (attribute & kAttributeDim) foreground = terminalScreen.dimColour;
    if (attribute & kAttributeInverse) std::swap(foreground, background);
    look->font = FontOf(attribute);
    look->foreground = foreground;
    look->background = background;
}

void DrawWrittenCells(int column, int screenRow, const CellRun& run, bool stacked) {
    const int width = terminalMetrics.charWidth;
    DrawCells(ColumnX(column), WritingY(screenRow), &run, 1,
              {stacked ? 0 : width, width + 1, terminalMetrics.charHeight});
}

void DrawScrolledRow(KeptLine* kept, int screenRow) {
    const int y = RepaintY(screenRow);
    if (DrawCellsAgain(y, kept->painted)) return;
    const int width = terminalMetrics.charWidth;
    row.Gather(kept->line, true);
    kept->painted = DrawCells(ColumnX(1), y, row.runs, row.count,
                              {width, width + 1, terminalMetrics.charHeight});
}

void DrawRepaintedRow(const TerminalLine& line, int screenRow) {
    const int width = terminalMetrics.charWidth;
    row.Gather(line, false);
    DrawCells(ColumnX(1), RepaintY(screenRow), row.runs, row.count,
              {width, width, terminalMetrics.charHeight});
}
