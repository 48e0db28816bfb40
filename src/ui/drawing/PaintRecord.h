// The picture of a canvas, and what was drawn on it and has not become pixels yet.
//
// The program's coordinates are those of the canvas as the program knows it; the picture
// has the pixels of the screen, which may be finer, and not by a whole factor. Each edge
// is rounded to a pixel once, when it is recorded, so neighbours that share an edge share
// it in pixels too. Operations are kept in order. Their y counts in document rows: a move
// of the picture shifts `origin`, the document row at the picture's top, and leaves the
// operations as they are. So what is painted over, or moved out, before anyone looks is
// found out by comparing areas and costs no pixels. Interface thread.
#pragma once

#include <QImage>
#include <QRect>
#include <cstdint>
#include <vector>

#include "ui/drawing/Drawing.h"

// Bounds of a record; a full one becomes pixels.
constexpr int kMostPaintOperations = 32768;
constexpr int kMostPaintText = 512 * 1024;  // code units

// A larger picture than this is cut at its right and lower end.
constexpr int kLongestPictureSide = 16384;  // pixels
constexpr int kMostPicturePixels = 32 * 1024 * 1024;

// Pixels for each unit of the program's coordinates, as a fixed-point number, so that a
// place comes out alike however the picture was moved there.
constexpr int kScaleBits = 16;
constexpr int kScaleOne = 1 << kScaleBits;

// A rectangle of pixels; right and bottom are outside.
struct PaintArea {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool Empty() const { return left >= right || top >= bottom; }
};

enum class PaintKind : uint8_t { kBox, kXorBox, kCells };

// Tops and bottoms are in document rows, but for those of `seen`.
struct PaintOperation {
    PaintKind kind = PaintKind::kBox;
    PaintArea area;                               // that may be touched
    PaintArea cover;                              // its part that is surely filled
    PaintArea seen;                               // around what of it can be seen in the picture
    QRgb colour = 0;                              // of the box or boxes
    QRgb ink = 0;                                 // of the glyphs, as all that follows
    int top = 0, boxBottom = 0, glyphBottom = 0;  // of the cells
    int x = 0;                                    // of the first cell, not scaled
    int16_t pitch = 0;                            // not scaled
    int16_t boxWidth = 0;                         // not scaled
    int16_t reach = 0;     // from a cell's x to the end of its box or glyph, not scaled
    int16_t inkReach = 0;  // pixels by which ink leaves a glyph's box
    int16_t font = 0;
    bool fillBox = false;
    bool inkInBoxes = false;      // the boxes join, and no glyph leaves its own
    int32_t text = 0, count = 0;  // in PaintRecord::text
};

struct PaintRecord {
    int width = 0, height = 0;  // of the canvas, not scaled
    int scale = kScaleOne;
    int origin = 0;             // document row of the picture's first row, not scaled
    int phase = kScaleOne / 2;  // document row 0 in pixels and their fraction, below kScaleOne
    QImage picture;             // before the operations
    std::vector<PaintOperation> operations;
    std::vector<char16_t> text;
    QRect changed;  // of the canvas, not scaled, since the last look
};

// The pixel column of an x; the document's pixel row of a y of the picture as it stands.
inline int PixelColumn(const PaintRecord& record, int64_t x) {
    return static_cast<int>((x * record.scale + kScaleOne / 2) >> kScaleBits);
}
inline int PixelRow(const PaintRecord& record, int64_t y) {
    return static_cast<int>(((y + record.origin) * record.scale + record.phase) >> kScaleBits);
}
// Pixels that a length may need.
inline int MostPixels(int length, int scale) {
    return static_cast<int>((int64_t{length} * scale + kScaleOne - 1) >> kScaleBits);
}

// A colour of the program, BBGGRR, as the picture holds it.
inline QRgb ImageColour(uint32_t colour) {
    return 0xFF000000U | (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

// Recording. Coordinates are those of the picture as it stands, not scaled.
void RecordBox(PaintRecord* record, int x, int y, int width, int height, QRgb colour);
void RecordXorBox(PaintRecord* record, int x, int y, int width, int height, QRgb colour);
void RecordCells(PaintRecord* record, int x, int y, const CellRun& run, const CellBoxes& boxes);
void RecordMove(PaintRecord* record, int top, int height, int target, QRgb background);

// Gives the canvas a size and drops what the picture showed: it is white then.
void ResetPicture(PaintRecord* record, int width, int height);
// Gives it a size and a scale in pixels for each unit. The overlapping part of the picture
// stays, coarse where the scale has changed; what is new is white.
void FitPicture(PaintRecord* record, int width, int height, double scale);
// The picture with all that was drawn so far: makes the pixels that are missing.
const QImage& PictureOf(PaintRecord* record);
