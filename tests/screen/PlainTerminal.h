// A terminal that keeps a plain list of lines and paints each change at once, cell by
// cell: no ring, no kept rows, no record. What screen model and painters must equal.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "terminal/screen/TerminalScreen.h"
#include "tests/screen/PlainPicture.h"

class PlainTerminal {
  public:
    PlainTerminal();
    // Takes size, limits, scheme and metrics from the terminal as it stands, empty and
    // painted anew. The cursor bar of before stays known.
    void TakeOver();

    void Put(const std::u16string& text);
    void Erase(int mode);
    void ScrollUp(int n);
    void ScrollDown(int n);
    void Clear();
    void Repaint();
    void Blink();

    TerminalScreen state;
    std::deque<TerminalLine> lines;
    PlainPicture picture;

  private:
    int X(int column) const;
    int WritingY(int row) const;
    int RepaintY(int row) const;
    void Select(int element);
    void Glyph(int x, int y, const TerminalCell& cell, bool fill, int boxWidth);
    void Bar(int x, int y, uint32_t colour);
    void ScrollView(int n);
    void RowBoxes(int row);

    TerminalLine* current = nullptr;
    int barX = 0, barY = 0, phase = 0;
    bool barDrawn = false;
    uint32_t barBackground = 0;
};
