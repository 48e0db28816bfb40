// Drawing on a canvas's image. StartDrawing opens a canvas, the calls draw in order,
// StopDrawing closes it. One canvas is open at a time; calls nest on the same one.
//
// Drawing has its effect at once as far as any reader can tell, but pixels are made
// only when somebody looks: each call is recorded, and what was painted over or moved
// out of the picture before anyone saw it costs no pixels. Colours are BBGGRR, red in
// the low byte; bits above the 24th are ignored. Coordinates are those of the canvas; the
// picture has the pixels of the screen that shows it. Interface thread.
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

// Sizes of a row of cells, held to 0 to 4,096.
struct CellBoxes {
    int pitch = 0;              // from one cell to the next
    int width = 0, height = 0;  // of the background box under a character
};

// Draws the cells of a run one behind the other, the first at x, y. For each cell in turn:
// with fillBox, its background box; then its glyph, whose own box (the font's advance and
// height) has the background colour as well. Ink does not leave the glyph's box. y is the
// top of the boxes.
void DrawCells(int x, int y, const CellRun& run, const CellBoxes& boxes);

// Grabs the strip of the picture from 0, `top`, as wide as the picture and `height`
// high, fills the whole picture with `background`, and draws the strip back at
// 0, `target`. What the strip lacks below the picture's end is left as background.
void MovePicture(int top, int height, int target, uint32_t background);

// Width and height of a text in a font, without a canvas.
int TextWidthOf(int font, const QString& text);
int TextHeightOf(int font);

// Gives the canvas's picture a size and drops what it showed: it is white then. The
// gadget keeps its own size.
void ResetCanvasPicture(int canvas, int width, int height);

// The canvas's picture as it stands, in pixels of the screen, for tests and screenshots;
// null for no canvas.
QImage CanvasPicture(int canvas);
