#include "terminal/screen/EraseLine.h"

#include "base/Numbers.h"
#include "terminal/screen/CellPainting.h"
#include "terminal/screen/LineList.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/drawing/Drawing.h"

namespace {

void FillRow(int x, int width) {
    DrawBox(x, WritingY(terminalScreen.cursorY), width, terminalMetrics.charHeight,
            terminalScreen.curBg);
}

// Cells past the cursor keep their contents; the length cuts them off.
void EraseToEnd(TerminalLine* line) {
    const int x = ColumnX(terminalScreen.cursorX);
    FillRow(x, terminalSettings.canvasWidth - x);
    line->cells[terminalScreen.cursorX].ch = 0;
    line->length = terminalScreen.cursorX;
}

// The cell of the cursor is not erased, and the length stays.
void EraseFromStart(TerminalLine* line) {
    FillRow(0, (terminalScreen.cursorX - 1) * terminalMetrics.charWidth);
    for (int column = 1; column < terminalScreen.cursorX; ++column) {
        line->cells[column].ch = 0;
        line->cells[column].attr = 0;
    }
}

void EraseAll(TerminalLine* line) {
    FillRow(0, terminalSettings.canvasWidth);
    line->cells[terminalScreen.cursorX].ch = 0;
    line->length = 0;
}

constexpr void (*kErasers[])(TerminalLine*) = {EraseToEnd, EraseFromStart, EraseAll};
constexpr int kEraseModes = sizeof kErasers / sizeof kErasers[0];

}  // namespace

void TerminalEraseLine(int mode) {
    if (mode < 0 || mode >= kEraseModes) return;
    TerminalLine* line = LineAt(terminalScreen.topLine + terminalScreen.cursorY);
    if (!line || !StartDrawing(kTerminalCanvas)) return;
    kErasers[mode](line);
    StopDrawing();
}
