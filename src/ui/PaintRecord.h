// What was drawn on a picture and has not become pixels yet. Operations are kept in order,
// in compact form. Their y counts in document rows: a move of the picture shifts `origin`,
// the document row at the picture's top, and leaves the operations as they are. So what
// is painted over, or moved out, before anyone looks is found out by comparing areas and
// costs no pixels. A part outside the picture needs no cutting when it is recorded: the
// move that could bring it into view paints the rows that it uncovers. Interface thread.
#pragma once

#include <QImage>
#include <cstdint>
#include <vector>

#include "ui/Drawing.h"

// Bounds of a record. A full one becomes pixels, after what cannot be seen any more was
// dropped.
constexpr int kMostPaintOperations = 32768;
constexpr int kMostPaintSpans = 65536;
constexpr int kMostPaintText = 512 * 1024;  // code units

constexpr int kBoxSideLimit = 4096;  // pixels; bound of a cell's box and pitch

enum class PaintKind : uint8_t { kBox, kXorBox, kCells };

// Cells of one look in a row.
struct PaintSpan {
    int32_t text = 0;   // position of its characters in PaintRecord::text
    int32_t count = 0;  // of cells, above 0
    QRgb foreground = 0, background = 0;
    int16_t font = 0;
    int16_t widest = 0;  // width of its widest glyph
    int16_t reach = 0;   // pixels by which ink leaves a glyph's box
    bool fillBox = false;
};

struct PaintOperation {
    PaintKind kind = PaintKind::kBox;
    int16_t pitch = 0, boxWidth = 0, boxHeight = 0;  // of cells
    int32_t x = 0, y = 0;                            // y in document rows
    int32_t width = 0, height = 0;                   // of the area that may be touched
    int32_t reach = 0;                               // and so many pixels around it
    int32_t coverWidth = 0, coverHeight = 0;  // of the part, at x and y, that is surely filled
    QRgb colour = 0;                          // of a box
    int32_t firstSpan = 0, spans = 0;         // of cells
};

// A rectangle of the picture or of its document; right and bottom are outside.
struct PaintArea {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool Empty() const { return left >= right || top >= bottom; }
};

struct PaintRecord {
    int width = 0, height = 0;  // of the picture
    int origin = 0;             // document row of the picture's first row
    // The picture before the operations. It may still have another size, or be empty,
    // while `uniform` is set: then all of it has one colour and no pixels were made.
    QImage picture;
    bool uniform = true;
    QRgb uniformColour = 0;
    std::vector<PaintOperation> operations;
    std::vector<PaintSpan> spans;
    std::vector<char16_t> text;
    uint64_t stamp = 0;  // no two states of any record's spans share it
    PaintArea changed;   // of the picture, since the last look
};

// A colour of the program, BBGGRR, as the image holds it.
inline QRgb ImageColour(uint32_t colour) {
    return 0xFF000000U | (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

// Recording. Coordinates are those of the picture as it stands.
void RecordBox(PaintRecord* record, int x, int y, int width, int height, QRgb colour);
void RecordXorBox(PaintRecord* record, int x, int y, int width, int height, QRgb colour);
KeptCells RecordCells(PaintRecord* record, int x, int y, const CellRun* runs, int count,
                      const CellBoxes& boxes);
// False when the record does not hold those cells any more.
bool RecordKeptCells(PaintRecord* record, int y, const KeptCells& kept);
void RecordMove(PaintRecord* record, int top, int height, int target, QRgb background);

// Forgets all operations; no cells kept before are held any more.
void ForgetOperations(PaintRecord* record);
// Forgets all operations and makes the picture one colour.
void MakeUniform(PaintRecord* record, QRgb colour);

// Part of an operation that can be seen, in picture coordinates.
struct VisiblePart {
    int32_t operation = 0;
    int32_t left = 0, top = 0, right = 0, bottom = 0;  // right and bottom are outside
};

// Columns of one picture row that the operations surely fill.
struct CoveredColumns {
    int32_t left = 0, right = 0;  // right is outside; equal for none
    bool operator==(const CoveredColumns& other) const {
        return left == other.left && right == other.right;
    }
};

// What of the operations can be seen: the parts, the newest operation first, and for each
// row of the picture what they cover together.
struct VisibleParts {
    std::vector<VisiblePart> parts;
    std::vector<CoveredColumns> covered;
};
void FindVisibleParts(const PaintRecord& record, VisibleParts* visible);

// Turns all operations into pixels.
void MakePixels(PaintRecord* record);
