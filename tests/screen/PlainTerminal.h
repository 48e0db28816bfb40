// A terminal that keeps a plain list of lines and paints each change at once, cell by
// cell: no ring, no kept rows, no record. What screen model and painters must equal.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <string>
#include <utility>

#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "tests/screen/PlainPicture.h"

struct PlainTerminal {
    PlainTerminal() : picture(1, 1) { TakeOver(); }

    // Takes size, limits, scheme and metrics from the terminal as it stands, empty and
    // painted anew. The cursor bar of before stays known.
    void TakeOver() {
        state = terminalScreen;
        cellWidth = terminalMetrics.charWidth;
        cellHeight = terminalMetrics.charHeight;
        width = terminalSettings.canvasWidth;
        height = terminalSettings.canvasHeight;
        picture = PlainPicture(width, height);
        Clear();
        Repaint();
    }

    void Put(const std::u16string& text) {
        Select(state.topLine + state.cursorY);
        for (const char16_t c : text) {
            TerminalCell& cell = current->cells[state.cursorX];
            cell = {c, static_cast<int16_t>(state.textAttr), state.curBg, state.curFg};
            Draw(X(state.cursorX), WritingY(), cell, true, cellWidth + 1);
            state.cursorX = std::min(state.cursorX + 1, state.cols);
        }
        current->length = std::max(current->length, state.cursorX);
    }

    void Erase(int mode) {
        Select(state.topLine + state.cursorY);
        const int x = X(state.cursorX);
        if (mode == 0) {
            picture.Box(x, WritingY(), width - x, cellHeight, state.curBg);
            current->length = state.cursorX;
        } else if (mode == 1) {
            picture.Box(0, WritingY(), (state.cursorX - 1) * cellWidth, cellHeight, state.curBg);
            for (int c = 1; c < state.cursorX; ++c)
                current->cells[c].ch = current->cells[c].attr = 0;
        } else if (mode == 2) {
            picture.Box(0, WritingY(), width, cellHeight, state.curBg);
            current->length = 0;
        }
        if (mode == 0 || mode == 2) current->cells[state.cursorX].ch = 0;
    }

    void ScrollUp(int n) {
        state.topLine += n;
        if (state.topLine > state.topLimit) {
            lines.resize(lines.size() + state.topLine - state.topLimit);
            state.topLimit = std::min(state.scrollBack, state.topLine);
        }
        for (; state.topLine > state.scrollBack; --state.topLine) lines.pop_front();
        ScrollView(n);
    }

    void ScrollDown(int n) {
        state.topLine = std::max(state.topLine - n, 0);
        ScrollView(-n);
    }

    void Clear() {
        picture.Box(0, 0, width, height, state.curBg);
        state.cursorX = state.cursorY = 1;
        state.topLine = state.topLimit = 0;
        state.curBg = state.defaultBg = state.darkBackground ? 0 : 0xFFFFFF;
        state.curFg = state.defaultFg = state.darkBackground ? 0xFFFFFF : 0;
        lines = std::deque<TerminalLine>(static_cast<size_t>(state.rows) + 1);
        current = &lines.back();
    }

    void Repaint() {
        TakeDefaultColours();
        picture.Box(0, 0, width, height, state.curBg);
        for (int row = 1; row <= state.rows; ++row) DrawRow(row, false, cellWidth);
    }

    void Blink() {
        phase = 1 - phase;
        if (barDrawn) Bar(barX, barY, barBackground);
        Select(state.topLine + state.cursorY);
        barX = X(state.cursorX);
        barY = WritingY();
        barDrawn = true;
        barBackground = current->cells[state.cursorX].bg;
        Bar(barX, barY, phase == 1 && state.cursorVisible ? state.curFg : barBackground);
    }

    TerminalScreen state;
    std::deque<TerminalLine> lines;
    PlainPicture picture;

  private:
    int X(int column) const { return (column - 1) * cellWidth + 2; }
    int WritingY() const { return (state.cursorY - 1) * cellHeight + 2; }

    // An element past the end leaves the previous one current.
    void Select(int element) {
        if (element >= 0 && element < static_cast<int>(lines.size())) current = &lines[element];
    }

    void TakeDefaultColours() {
        state.curBg = state.defaultBg;
        state.curFg = state.defaultFg;
    }

    void Draw(int x, int y, const TerminalCell& cell, bool fill, int boxWidth) {
        uint32_t foreground = cell.attr & 16 ? cell.bg : cell.fg, background = cell.bg;
        if (cell.attr & 8) foreground = state.dimColour;
        if (cell.attr & 4) std::swap(foreground, background);
        const int font = cell.attr & 1   ? terminalMetrics.boldFont
                         : cell.attr & 2 ? terminalMetrics.thirdFont
                                         : terminalMetrics.normalFont;
        const CellRun run = {
            &cell.ch, 1, {foreground, background, static_cast<int16_t>(font), fill}};
        picture.Cells(x, y, &run, 1, {0, boxWidth, cellHeight});
    }

    void DrawRow(int row, bool fill, int boxWidth) {
        Select(state.topLine + row);
        for (int c = 1; c <= current->length; ++c) {
            const TerminalCell& cell = current->cells[c];
            Draw(X(c), (row - 1) * cellHeight, cell, fill || cell.attr & 4, boxWidth);
        }
    }

    void Bar(int x, int y, uint32_t colour) {
        picture.Box(x, y + cellHeight - 2, cellWidth, 2, colour);
    }

    void ScrollView(int n) {
        if (n == 0) return;
        TakeDefaultColours();
        Bar(X(state.cursorX), WritingY(), state.curBg);
        const int s = std::abs(n) * cellHeight;
        if (n > 0) {
            picture.Move(s + 2, height - s - 1, 2, state.curBg);
            for (int row = std::max(state.rows - n, 1); row <= state.rows; ++row) {
                DrawRow(row, true, cellWidth + 1);
            }
        } else {
            picture.Move(2, height - s, 2 + s, state.curBg);
            for (int row = 1; row <= state.rows - n; ++row) DrawRow(row, true, cellWidth + 1);
            picture.Box(0, 0, width, 2, state.curBg);
        }
    }

    int cellWidth = 0, cellHeight = 0, width = 0, height = 0;
    TerminalLine* current = nullptr;
    int barX = 0, barY = 0, phase = 0;
    bool barDrawn = false;
    uint32_t barBackground = 0;
};
