#include "ui/drawing/PaintCoverInternal.h"
#include "ui/drawing/PaintPixelsInternal.h"

#include <algorithm>
#include <cstring>

#include "ui/drawing/ColourRampInternal.h"
#include "ui/drawing/GlyphMasksInternal.h"
#include "ui/drawing/PaintRecord.h"

namespace {

// The picture's pixels, and the part of it that an operation paints.
struct Target {
    QRgb* pixels;
    int stride;  // pixels from row to row
    PaintArea part;

    QRgb* At(int x, int y) const { return pixels + static_cast<ptrdiff_t>(y) * stride + x; }
    PaintArea Cut(const PaintArea& area) const {
        return {std::max(area.left, part.left), std::max(area.top, part.top),
                std::min(area.right, part.right), std::min(area.bottom, part.bottom)};
    }
};

void FillBox(const Target& target, const PaintArea& box, QRgb colour) {
    const PaintArea cut = target.Cut(box);
    if (cut.Empty()) return;
    QRgb* out = target.At(cut.left, cut.top);
    for (int row = cut.top; row < cut.bottom; ++row, out += target.stride) {
        std::fill_n(out, cut.right - cut.left, colour);
    }
}

void InvertPart(const Target& target, QRgb colour) {
    for (int row = target.part.top; row < target.part.bottom; ++row) {
        for (int x = target.part.left; x < target.part.right; ++x) *target.At(x, row) ^= colour;
    }
}

// A glyph's own box with all that is in it, at left and top of the picture.
struct PlacedGlyph {
    const GlyphMask& mask;
    PaintArea box;
};

// Paints rows of the box, all of their pixels.
void PaintGlyph(const Target& target, const PlacedGlyph& glyph, int from, int to,
                const QRgb* ramp) {
    const PaintArea& box = glyph.box;
    const PaintArea cut =
        target.Cut({box.left, box.top + from, box.right, std::min(box.top + to, box.bottom)});
    const int columns = cut.right - cut.left;
    if (cut.Empty()) return;
    const uint8_t* coverage = glyph.mask.At(cut.left - box.left, cut.top - box.top);
    QRgb* out = target.At(cut.left, cut.top);
    for (int row = cut.top; row < cut.bottom; ++row) {
        for (int i = 0; i < columns; ++i) out[i] = ramp[coverage[i]];
        coverage += glyph.mask.Stride();
        out += target.stride;
    }
}

// What of a glyph's ink lies outside its box, on what is there.
void PaintInkOutside(const Target& target, const PlacedGlyph& glyph, QRgb ink) {
    const GlyphMask& mask = glyph.mask;
    const PaintArea& box = glyph.box;
    const PaintArea cut =
        target.Cut({box.left - mask.reach, box.top - mask.reach, box.left + mask.width + mask.reach,
                    box.top + mask.height + mask.reach});
    for (int row = cut.top; row < cut.bottom; ++row) {
        const bool beside = row >= box.top && row < box.bottom;
        for (int x = cut.left; x < cut.right; ++x) {
            if (beside && x >= box.left && x < box.right) continue;
            QRgb* const out = target.At(x, row);
            *out = BlendColours(ink, *out, *mask.At(x - box.left, row - box.top));
        }
    }
}

// Boxes that no glyph leaves are one box, with the ink on it; others are painted in turn,
// each glyph with all of its own box. `top` is the document's row at the picture's top.
void PaintCells(const PaintRecord& record, const Target& target, const PaintOperation& cells,
                int top) {
    const char16_t* text = record.text.data() + cells.text;
    const QRgb* ramp = RampOf(cells.ink, cells.colour);
    PaintArea box = {PixelColumn(record, cells.x), cells.top - top, cells.cover.right,
                     cells.boxBottom - top};
    const int glyphBottom = cells.glyphBottom - top;
    if (cells.inkInBoxes) FillBox(target, box, cells.colour);
    for (int i = 0, x = cells.x; i < cells.count; ++i, x += cells.pitch) {
        box.left = PixelColumn(record, x);
        if (box.left - cells.inkReach >= target.part.right) break;
        if (PixelColumn(record, x + cells.reach) + cells.inkReach <= target.part.left) continue;
        if (cells.fillBox && !cells.inkInBoxes) {
            box.right = PixelColumn(record, x + cells.boxWidth);
            FillBox(target, box, cells.colour);
        }
        if (text[i] == 0 || (text[i] == ' ' && cells.inkInBoxes)) continue;
        const GlyphMask& mask = GlyphOf(cells.font, text[i], record.scale);
        const PlacedGlyph glyph = {
            mask, {box.left, box.top, PixelColumn(record, x + mask.advance), glyphBottom}};
        if (cells.inkInBoxes) {
            PaintGlyph(target, glyph, mask.inkTop, mask.inkBottom, ramp);
        } else {
            PaintGlyph(target, glyph, 0, mask.height, ramp);
            if (mask.reach > 0) PaintInkOutside(target, glyph, cells.ink);
        }
    }
}

void PaintOperations(const PaintRecord& record, Target* target, int top) {
    for (const PaintOperation& operation : record.operations) {
        target->part = operation.seen;
        if (operation.seen.Empty()) continue;
        switch (operation.kind) {
            case PaintKind::kBox:
                FillBox(*target, operation.seen, operation.colour);
                break;
            case PaintKind::kXorBox:
                InvertPart(*target, operation.colour);
                break;
            case PaintKind::kCells:
                PaintCells(record, *target, operation, top);
                break;
        }
    }
}

// Gives each row that is not painted over its pixels of before. Rows from outside the
// picture are left: the move that uncovered them recorded their background.
void MoveRows(QImage* picture, int shift, const std::vector<CoveredColumns>& covered) {
    if (shift == 0) return;
    for (int i = 0; i < picture->height(); ++i) {
        const int row = shift > 0 ? i : picture->height() - 1 - i;
        const int source = row + shift;
        if (source < 0 || source >= picture->height()) continue;
        if (covered[row].left <= 0 && covered[row].right >= picture->width()) continue;
        memcpy(picture->scanLine(row), picture->constScanLine(source),
               picture->width() * sizeof(QRgb));
    }
}

std::vector<CoveredColumns> covered;  // of MakePixels, which keeps its memory

}  // namespace

void MakePixels(PaintRecord* record) {
    const int top = PixelRow(*record, 0);
    if (record->operations.empty() && top == 0) return;
    const QSize size(MostPixels(record->width, record->scale),
                     MostPixels(record->height, record->scale));
    if (record->picture.size() != size) record->picture = QImage(size, QImage::Format_RGB32);
    FindSeenParts(record, &covered);
    MoveRows(&record->picture, top, covered);
    Target target;
    target.pixels = reinterpret_cast<QRgb*>(record->picture.bits());
    target.stride = record->picture.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    PaintOperations(*record, &target, top);
    record->operations.clear();
    record->text.clear();
    const int64_t place = int64_t{record->origin} * record->scale + record->phase;
    record->phase = static_cast<int>(place & (kScaleOne - 1));
    record->origin = 0;
}
