#include "terminal/screen/CellPainting.h"

#include <utility>

#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalScreen.h"

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

// The cells of a line up to its length, in runs of one look.
void DrawRow(const TerminalLine& line, int y, bool fillAll, const CellBoxes& boxes) {
    char16_t text[kLineCells];
    for (int column = 1; column <= line.length;) {
        const TerminalCell& first = line.cells[column];
        CellRun run;
        SetLook(&run.look, first.attr, first.fg, first.bg);
        run.look.fillBox = fillAll || (first.attr & kAttributeInverse);
        run.text = text;
        const int x = ColumnX(column);
        for (; column <= line.length && LookAlike(line.cells[column], first); ++column) {
            text[run.count++] = line.cells[column].ch;
        }
        DrawCells(x, y, run, boxes);
    }
}

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
    DrawCells(ColumnX(column), WritingY(screenRow), run,
              {stacked ? 0 : width, width + 1, terminalMetrics.charHeight});
}

void DrawScrolledRow(const TerminalLine& line, int screenRow) {
    const int width = terminalMetrics.charWidth;
    DrawRow(line, RepaintY(screenRow), true, {width, width + 1, terminalMetrics.charHeight});
}

void DrawRepaintedRow(const TerminalLine& line, int screenRow) {
    const int width = terminalMetrics.charWidth;
    DrawRow(line, RepaintY(screenRow), false, {width, width, terminalMetrics.charHeight});
}
