#include "tests/screen/PlainTerminal.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"

namespace {

int CellWidth() {
    return terminalMetrics.charWidth;
}
int CellHeight() {
    return terminalMetrics.charHeight;
}
int Width() {
    return terminalSettings.canvasWidth;
}
int Height() {
    return terminalSettings.canvasHeight;
}

}  // namespace

PlainTerminal::PlainTerminal() : picture(1, 1) {
    TakeOver();
}

void PlainTerminal::TakeOver() {
    state = terminalScreen;
    picture = PlainPicture(Width(), Height());
    Clear();
    Repaint();
}

int PlainTerminal::X(int column) const {
    return (column - 1) * CellWidth() + 2;
}

int PlainTerminal::WritingY(int row) const {
    return (row - 1) * CellHeight() + 2;
}

int PlainTerminal::RepaintY(int row) const {
    return (row - 1) * CellHeight();
}

void PlainTerminal::Select(int element) {
    if (element >= 0 && element < static_cast<int>(lines.size())) current = &lines[element];
}

void PlainTerminal::Glyph(int x, int y, const TerminalCell& cell, bool fill, int boxWidth) {
    uint32_t foreground = cell.fg, background = cell.bg;
    if (cell.attr & 16) foreground = background;
    if (cell.attr & 8) foreground = state.dimColour;
    if (cell.attr & 4) std::swap(foreground, background);
    const int font = cell.attr & 1   ? terminalMetrics.boldFont
                     : cell.attr & 2 ? terminalMetrics.thirdFont
                                     : terminalMetrics.normalFont;
    const CellRun run = {&cell.ch, 1, {foreground, background, static_cast<int16_t>(font), fill}};
    picture.Cells(x, y, &run, 1, {0, boxWidth, CellHeight()});
}

void PlainTerminal::Put(const std::u16string& text) {
    Select(state.topLine + state.cursorY);
    for (const char16_t c : text) {
        TerminalCell& cell = current->cells[state.cursorX];
        cell = {c, static_cast<int16_t>(state.textAttr), state.curBg, state.curFg};
        Glyph(X(state.cursorX), WritingY(state.cursorY), cell, true, CellWidth() + 1);
        state.cursorX = std::min(state.cursorX + 1, state.cols);
    }
    current->length = std::max(current->length, state.cursorX);
}

void PlainTerminal::Erase(int mode) {
    Select(state.topLine + state.cursorY);
    const int y = WritingY(state.cursorY);
    const int x = X(state.cursorX);
    if (mode == 0) {
        picture.Box(x, y, Width() - x, CellHeight(), state.curBg);
        current->cells[state.cursorX].ch = 0;
        current->length = state.cursorX;
    } else if (mode == 1) {
        picture.Box(0, y, (state.cursorX - 1) * CellWidth(), CellHeight(), state.curBg);
        for (int c = 1; c < state.cursorX; ++c) current->cells[c].ch = current->cells[c].attr = 0;
    } else if (mode == 2) {
        picture.Box(0, y, Width(), CellHeight(), state.curBg);
        current->cells[state.cursorX].ch = 0;
        current->length = 0;
    }
}

void PlainTerminal::ScrollUp(int n) {
    state.topLine += n;
    if (state.topLine > state.topLimit) {
        lines.resize(lines.size() + state.topLine - state.topLimit);
        state.topLimit = std::min(state.scrollBack, state.topLine);
    }
    for (; state.topLine > state.scrollBack; --state.topLine) lines.pop_front();
    ScrollView(n);
}

void PlainTerminal::ScrollDown(int n) {
    state.topLine -= n;
    if (state.topLine < 1) state.topLine = 0;
    ScrollView(-n);
}

void PlainTerminal::Clear() {
    picture.Box(0, 0, Width(), Height(), state.curBg);
    state.cursorX = state.cursorY = 1;
    state.topLine = state.topLimit = 0;
    state.curBg = state.defaultBg = state.darkBackground ? 0 : 0xFFFFFF;
    state.curFg = state.defaultFg = state.darkBackground ? 0xFFFFFF : 0;
    lines = std::deque<TerminalLine>(static_cast<size_t>(state.rows) + 1);
    current = &lines.back();
}

void PlainTerminal::Repaint() {
    state.curBg = state.defaultBg;
    state.curFg = state.defaultFg;
    picture.Box(0, 0, Width(), Height(), state.curBg);
    for (int row = 1; row <= state.rows; ++row) {
        Select(state.topLine + row);
        for (int c = 1; c <= current->length; ++c) {
            const TerminalCell& cell = current->cells[c];
            Glyph(X(c), RepaintY(row), cell, cell.attr & 4, CellWidth());
        }
    }
}

void PlainTerminal::Bar(int x, int y, uint32_t colour) {
    picture.Box(x, y + CellHeight() - 2, CellWidth(), 2, colour);
}

void PlainTerminal::RowBoxes(int row) {
    Select(state.topLine + row);
    for (int c = 1; c <= current->length; ++c) {
        Glyph(X(c), RepaintY(row), current->cells[c], true, CellWidth() + 1);
    }
}

void PlainTerminal::ScrollView(int n) {
    if (n == 0) return;
    state.curBg = state.defaultBg;
    state.curFg = state.defaultFg;
    Bar(X(state.cursorX), WritingY(state.cursorY), state.curBg);
    const int s = std::abs(n) * CellHeight();
    if (n > 0) {
        picture.Move(s + 2, Height() - s - 1, 2, state.curBg);
        for (int row = std::max(state.rows - n, 1); row <= state.rows; ++row) RowBoxes(row);
    } else {
        picture.Move(2, Height() - s, 2 + s, state.curBg);
        for (int row = 1; row <= state.rows - n; ++row) RowBoxes(row);
        picture.Box(0, 0, Width(), 2, state.curBg);
    }
}

void PlainTerminal::Blink() {
    phase = 1 - phase;
    if (barDrawn) Bar(barX, barY, barBackground);
    Select(state.topLine + state.cursorY);
    barX = X(state.cursorX);
    barY = WritingY(state.cursorY);
    barDrawn = true;
    barBackground = current->cells[state.cursorX].bg;
    Bar(barX, barY, phase == 1 && state.cursorVisible ? state.curFg : barBackground);
}
