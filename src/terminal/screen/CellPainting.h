// How cells look and where they stand on the canvas. Interface thread; the calls that draw
// belong between StartDrawing and StopDrawing.
#pragma once

#include <cstdint>

#include "terminal/screen/TerminalScreen.h"
#include "ui/drawing/Drawing.h"

constexpr int kCanvasMargin = 2;  // pixels left of the first column, above the writing rows

// The canvas x of a column, and the two y of a row: where it is written, and, two pixels
// higher, where a scroll or repaint draws it. Both counted from 1.
int ColumnX(int column);
int WritingY(int row);
int RepaintY(int row);

// The look of cells of an attribute and colours as they are stored; fillBox stays.
void SetLook(CellLook* look, int attribute, uint32_t foreground, uint32_t background);

// A run at its column and writing row. Stacked: all of it in that one column.
void DrawWrittenCells(int column, int row, const CellRun& run, bool stacked);
// A row at the repaint y, each cell with its background box.
void DrawScrolledRow(const TerminalLine& line, int row);
// A row at the repaint y; only inverse cells have a box of their own.
void DrawRepaintedRow(const TerminalLine& line, int row);
