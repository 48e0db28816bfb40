// Drawing on a canvas's image. StartDrawing opens a canvas, the calls draw in order,
// StopDrawing closes it. One canvas is open at a time; calls nest on the same one.
//
// Drawing has its effect at once as far as any reader can tell, but pixels are made
// only when somebody looks: each call is recorded, and what was painted over or moved
// out of the picture before anyone saw it costs no pixels. Colours are BBGGRR, red in
// the low byte; bits above the 24th are ignored. Coordinates are canvas pixels.
// Interface thread.
#pragma once

#include <QImage>
#include <QString>
#include <cstdint>

// False when the canvas does not exist or another one is open.
bool StartDrawing(int canvas);
void StopDrawing();

// Fills a box. Parts outside the image are cut off; an empty box draws nothing.
void DrawBox(int x, int y, int width, int height, uint32_t colour);

// Fills a box by XOR with the picture; drawn twice it leaves the picture as it was.
void DrawXorBox(int x, int y, int width, int height, uint32_t colour);

// How the cells of a run look. `font` is a number of Fonts.h.
struct CellLook {
    uint32_t foreground = 0;
    uint32_t background = 0;
    int16_t font = -1;
    bool fillBox = true;  // paint the background box under each character
};

// Neighbouring cells of one look. A character 0 draws no glyph.
struct CellRun {
    const char16_t* text = nullptr;
    int count = 0;
    CellLook look;
};

// Sizes of a row of cells in pixels, held to 0 to 4,096.
struct CellBoxes {
    int pitch = 0;              // from one cell to the next
    int width = 0, height = 0;  // of the background box under a character
};

// Cells that were drawn once and can be drawn again by one call, as long as the canvas
// still holds them. The fields are those of the drawing layer.
struct KeptCells {
    uint64_t stamp = 0;  // 0 for none
    int32_t x = 0;
    int32_t firstSpan = 0, spans = 0;
    int32_t width = 0, height = 0, coverWidth = 0, coverHeight = 0;
    int32_t reach = 0;  // pixels of ink around that
    CellBoxes boxes;
};

// Draws the cells of `runs` one behind the other, the first at x, y. For each cell in
// turn: with fillBox, its background box; then its glyph, whose own box (the font's
// advance and height) has the background colour as well. Ink that leaves the glyph's box
// lies on what is there. y is the top of the boxes.
KeptCells DrawCells(int x, int y, const CellRun* runs, int count, const CellBoxes& boxes);

// Draws the cells of an earlier DrawCells again, at the same x. False, and nothing drawn,
// when the canvas does not hold them any more.
bool DrawCellsAgain(int y, const KeptCells& kept);

// Grabs the strip of the picture from 0, `top`, as wide as the picture and `height`
// high, fills the whole picture with `background`, and draws the strip back at
// 0, `target`. What the strip lacks below the picture's end is left as background.
void MovePicture(int top, int height, int target, uint32_t background);

// Width and height in pixels of a text in a font, without a canvas.
int TextWidthOf(int font, const QString& text);
int TextHeightOf(int font);

// Brings every canvas, text and button that changed to the screen now, without taking
// any event. For procedures that block; SleepMs calls it by itself.
void FlushPainting();

// Gives the canvas's picture a size and drops what it showed: it is white then. The
// gadget keeps its own size.
void ResetCanvasPicture(int canvas, int width, int height);

// The canvas's picture as it stands, for tests and screenshots; null for no canvas.
QImage CanvasPicture(int canvas);
