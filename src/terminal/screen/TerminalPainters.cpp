#include "terminal/screen/TerminalPainters.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "base/Numbers.h"
#include "terminal/screen/CellPainting.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/drawing/Drawing.h"
#include "ui/gadgets/Gadgets.h"

namespace {

constexpr int kCursorHeight = 2;  // pixels
constexpr uint32_t kFocusedFrame = 16761471;
constexpr uint32_t kUnfocusedFrame = 0xF0F0F0;

// The cursor bar drawn last, and what it stands on.
struct CursorBar {
    bool drawn;
    int phase;
    int x, y;             // of its cell
    uint32_t background;  // of the cell under it, as stored
};

CursorBar bar = {};

void DrawBar(int x, int y, uint32_t colour) {
    DrawBox(x, y + terminalMetrics.charHeight - kCursorHeight, terminalMetrics.charWidth,
            kCursorHeight, colour);
}

// Moves the picture by `rows` rows. The strip begins two pixels down, so the two upper
// pixel rows of the picture never move.
void MoveRows(int rows) {
    const int shift = std::abs(rows) * terminalMetrics.charHeight;
    const int height = terminalSettings.canvasHeight;
    if (rows > 0) {
        MovePicture(shift + kCanvasMargin, height - shift - 1, kCanvasMargin, terminalScreen.curBg);
    } else {
        MovePicture(kCanvasMargin, height - shift, kCanvasMargin + shift, terminalScreen.curBg);
    }
}

// Rows whose element lies past the end of the list draw the line of the row before: the row
// below the last one shows its upper pixels in the canvas's lower margin.
void DrawRows(int first, int last) {
    const TerminalLine* line = nullptr;
    for (int row = std::max(first, 1); row <= last; ++row) {
        if (RepaintY(row) >= terminalSettings.canvasHeight) break;
        if (const TerminalLine* next = TerminalLineAt(terminalScreen.topLine + row)) line = next;
        if (line) DrawScrolledRow(*line, row);
    }
}

}  // namespace

void TerminalRepaint() {
    UseDefaultColours();  // one that the device chose lasts until here
    if (!StartDrawing(kTerminalCanvas)) return;
    DrawBox(0, 0, terminalSettings.canvasWidth, terminalSettings.canvasHeight,
            terminalScreen.curBg);
    for (int row = 1; row <= terminalScreen.rows; ++row) {
        const TerminalLine* line = TerminalLineAt(terminalScreen.topLine + row);
        if (line) DrawRepaintedRow(*line, row);
    }
    StopDrawing();
}

void TerminalScrollView(int n) {
    if (n == 0) return;
    UseDefaultColours();  // one that the device chose lasts until here
    if (!StartDrawing(kTerminalCanvas)) return;
    // Further than this the whole picture is uncovered anyway.
    const int rows = terminalScreen.rows;
    n = std::clamp(n, -(rows + 2), rows + 2);
    DrawBar(ColumnX(terminalScreen.cursorX), WritingY(terminalScreen.cursorY),
            terminalScreen.curBg);
    MoveRows(n);
    if (n > 0) {
        DrawRows(rows - n, rows);  // one row more than was uncovered
    } else {
        DrawRows(1, rows - n);
        DrawBox(0, 0, terminalSettings.canvasWidth, kCanvasMargin, terminalScreen.curBg);
    }
    StopDrawing();
}

void NotifyCursorBlink() {
    bar.phase = 1 - bar.phase;
    const int x = ColumnX(terminalScreen.cursorX);
    const int y = WritingY(terminalScreen.cursorY);
    if (!StartDrawing(kTerminalCanvas)) return;
    if (bar.drawn) DrawBar(bar.x, bar.y, bar.background);
    const TerminalLine* line = TerminalLineAt(terminalScreen.topLine + terminalScreen.cursorY);
    // The background as stored, not as an inverse cell shows it.
    if (line) bar.background = line->cells[terminalScreen.cursorX].bg;
    const bool lit = bar.phase == 1 && terminalScreen.cursorVisible;
    DrawBar(x, y, lit ? terminalScreen.curFg : bar.background);
    StopDrawing();
    bar.drawn = true;
    bar.x = x;
    bar.y = y;
}

void ScrollBarChanged() {
    const int position = GadgetState(kTerminalScrollBar);
    if (position > terminalScreen.topLine) {
        // Sets the bar back where no text exists yet.
        TerminalScrollUp(std::min(position, terminalScreen.topLimit) - terminalScreen.topLine);
    } else if (position < terminalScreen.topLine) {
        TerminalScrollDown(terminalScreen.topLine - position);
    }
}

void PaintTerminalFrame(bool focused) {
    const int width = terminalSettings.canvasWidth + 2 * kTerminalFrameWidth;
    const int height = terminalSettings.canvasHeight + 2 * kTerminalFrameWidth;
    ResetCanvasPicture(kFrameCanvas, width, height);
    if (!StartDrawing(kFrameCanvas)) return;
    DrawBox(0, 0, width, height, focused ? kFocusedFrame : kUnfocusedFrame);
    StopDrawing();
}
