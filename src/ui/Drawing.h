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

// One character of a row of cells. `font` is a number of Fonts.h.
struct CellLook {
    char16_t character;  // 0 draws no glyph
    uint32_t foreground;
    uint32_t background;
    int16_t font;
    bool fillBox;  // paint the background box of the given size under the character
};

// Draws `count` characters, each `pitch` pixels behind the one before, from x, y on.
// For each in turn: with fillBox, a box `boxWidth` by `boxHeight` in its background;
// then its glyph, whose own box (the font's advance and height) has the background
// colour as well. y is the top of the glyph's box.
void DrawCells(int x, int y, const CellLook* cells, int count, int pitch, int boxWidth,
               int boxHeight);

// The same for a run of one look.
void DrawCellRun(int x, int y, const char16_t* text, int count, const CellLook& look, int pitch,
                 int boxWidth, int boxHeight);

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

// The canvas's picture as it stands, for tests and screenshots; null for no canvas.
QImage CanvasPicture(int canvas);
