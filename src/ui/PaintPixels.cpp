// From recorded operations to pixels: the picture is moved once, by the sum of all moves,
// and the parts that can be seen are painted in order.
#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "ui/GlyphMasks.h"
#include "ui/PaintRecord.h"

namespace {

// The colours between a background and a foreground, for each coverage from 0 to 255.
struct ColourRamp {
    QRgb foreground = 0, background = 0;
    bool valid = false;
    std::array<QRgb, 256> colours;
};

constexpr int kRamps = 256;  // kept; two pairs of colours that share a place take turns

// A channel times coverage / 255, rounded as the toolkit's blending rounds it.
int Share(int channel, int coverage) {
    const int product = channel * coverage;
    return (product + (product >> 8) + 0x80) >> 8;
}

int Blend(int foreground, int background, int coverage) {
    return Share(foreground, coverage) + Share(background, 255 - coverage);
}

QRgb BlendColours(QRgb foreground, QRgb background, int coverage) {
    return qRgb(Blend(qRed(foreground), qRed(background), coverage),
                Blend(qGreen(foreground), qGreen(background), coverage),
                Blend(qBlue(foreground), qBlue(background), coverage));
}

void FillRamp(ColourRamp* ramp, QRgb foreground, QRgb background) {
    ramp->foreground = foreground;
    ramp->background = background;
    ramp->valid = true;
    for (int coverage = 0; coverage < 256; ++coverage) {
        ramp->colours[coverage] = BlendColours(foreground, background, coverage);
    }
    ramp->colours[255] = foreground;
}

std::array<ColourRamp, kRamps> ramps;

const QRgb* RampOf(QRgb foreground, QRgb background) {
    const uint32_t mixed = (foreground * 31 + background) * 0x9E3779B1U;
    ColourRamp& ramp = ramps[mixed >> 24];
    if (!ramp.valid || ramp.foreground != foreground || ramp.background != background) {
        FillRamp(&ramp, foreground, background);
    }
    return ramp.colours.data();
}

// The pixels of the picture while operations become pixels, and the part that is painted.
struct Target {
    QRgb* pixels;
    int stride;  // pixels from row to row
    VisiblePart part;

    QRgb* At(int x, int y) const { return pixels + static_cast<ptrdiff_t>(y) * stride + x; }
};

// A rectangle cut to the part.
struct Cut {
    Cut(const Target& target, int x, int y, int width, int height)
        : left(std::max(x, target.part.left)),
          top(std::max(y, target.part.top)),
          right(std::min(x + width, target.part.right)),
          bottom(std::min(y + height, target.part.bottom)) {}
    int left, top, right, bottom;
};

void FillBox(const Target& target, int x, int y, int width, int height, QRgb colour) {
    const Cut cut(target, x, y, width, height);
    const int columns = cut.right - cut.left;
    if (columns <= 0) return;
    QRgb* out = target.At(cut.left, cut.top);
    for (int row = cut.top; row < cut.bottom; ++row, out += target.stride) {
        std::fill_n(out, columns, colour);
    }
}

void FillXorBox(const Target& target, const PaintOperation& operation, int y) {
    const Cut cut(target, operation.x, y, operation.width, operation.height);
    for (int row = cut.top; row < cut.bottom; ++row) {
        for (int x = cut.left; x < cut.right; ++x) *target.At(x, row) ^= operation.colour;
    }
}

// Paints rows `from` to before `to` of a glyph's box, all of its pixels.
void PaintGlyphRows(const Target& target, const GlyphMask& glyph, int x, int y, int from, int to,
                    const QRgb* ramp) {
    const Cut cut(target, x, y + from, glyph.width, to - from);
    const int columns = cut.right - cut.left;
    if (columns <= 0) return;
    const uint8_t* coverage = glyph.coverage + (cut.top - y) * glyph.stride + (cut.left - x);
    QRgb* out = target.At(cut.left, cut.top);
    for (int row = cut.top; row < cut.bottom; ++row) {
        for (int i = 0; i < columns; ++i) out[i] = ramp[coverage[i]];
        coverage += glyph.stride;
        out += target.stride;
    }
}

// What of a glyph's ink lies outside its box, on what is there.
void PaintInkOutside(const Target& target, const GlyphMask& glyph, int x, int y, QRgb ink) {
    const int reach = glyph.reach;
    const Cut cut(target, x - reach, y - reach, glyph.width + 2 * reach, glyph.height + 2 * reach);
    for (int row = cut.top; row < cut.bottom; ++row) {
        const bool beside = row >= y && row < y + glyph.height;
        const uint8_t* const coverage = glyph.coverage + (row - y) * glyph.stride - x;
        for (int column = cut.left; column < cut.right; ++column) {
            if (beside && column >= x && column < x + glyph.width) continue;
            QRgb* const out = target.At(column, row);
            *out = BlendColours(ink, *out, coverage[column]);
        }
    }
}

// One look's cells, at x and y of the picture.
struct CellRow {
    const PaintOperation* operation;
    const PaintSpan* span;
    const char16_t* text;
    const QRgb* ramp;
    int x, y;
};

// Boxes that no glyph leaves are one box, with the ink on it.
void PaintEvenCells(const Target& target, const CellRow& row, int first, int last) {
    const PaintOperation& operation = *row.operation;
    FillBox(target, row.x + first * operation.pitch, row.y,
            (last - first) * operation.pitch + operation.boxWidth, operation.boxHeight,
            row.span->background);
    for (int i = first; i <= last; ++i) {
        if (row.text[i] == ' ' || row.text[i] == 0) continue;
        const GlyphMask& glyph = GlyphOf(row.span->font, row.text[i]);
        PaintGlyphRows(target, glyph, row.x + i * operation.pitch, row.y, glyph.inkTop,
                       glyph.inkBottom, row.ramp);
    }
}

void PaintCellsInTurn(const Target& target, const CellRow& row, int first, int last) {
    const PaintOperation& operation = *row.operation;
    for (int i = first; i <= last; ++i) {
        const int x = row.x + i * operation.pitch;
        if (row.span->fillBox) {
            FillBox(target, x, row.y, operation.boxWidth, operation.boxHeight,
                    row.span->background);
        }
        if (row.text[i] == 0) continue;
        const GlyphMask& glyph = GlyphOf(row.span->font, row.text[i]);
        PaintGlyphRows(target, glyph, x, row.y, 0, glyph.height, row.ramp);
        if (glyph.reach > 0) PaintInkOutside(target, glyph, x, row.y, row.span->foreground);
    }
}

bool Even(const PaintOperation& operation, const PaintSpan& span) {
    return span.fillBox && span.reach == 0 && span.widest <= operation.pitch &&
           operation.pitch <= operation.boxWidth && GlyphHeight(span.font) <= operation.boxHeight;
}

void PaintSpanCells(const Target& target, const CellRow& row) {
    const PaintOperation& operation = *row.operation;
    const PaintSpan& span = *row.span;
    int first = 0;
    int last = span.count - 1;
    if (operation.pitch > 0) {
        const int behind = std::max<int>(operation.boxWidth, span.widest) + span.reach;
        const int end = target.part.right - 1 + span.reach;
        first = std::max(first, (target.part.left - row.x - behind) / operation.pitch);
        last = std::min(last, (end - row.x) / operation.pitch);
        if (end < row.x) return;
    }
    if (first > last) return;
    if (Even(operation, span)) return PaintEvenCells(target, row, first, last);
    PaintCellsInTurn(target, row, first, last);
}

void PaintCells(const PaintRecord& record, const Target& target, const PaintOperation& operation) {
    CellRow row;
    row.operation = &operation;
    row.x = operation.x;
    row.y = operation.y - record.origin;
    for (int i = 0; i < operation.spans; ++i) {
        const PaintSpan& span = record.spans[operation.firstSpan + i];
        row.span = &span;
        row.text = record.text.data() + span.text;
        row.ramp = RampOf(span.foreground, span.background);
        PaintSpanCells(target, row);
        row.x += span.count * operation.pitch;
    }
}

void PaintPart(const PaintRecord& record, const Target& target) {
    const PaintOperation& operation = record.operations[target.part.operation];
    const int y = operation.y - record.origin;
    switch (operation.kind) {
        case PaintKind::kBox:
            FillBox(target, operation.x, y, operation.width, operation.height, operation.colour);
            break;
        case PaintKind::kXorBox:
            FillXorBox(target, operation, y);
            break;
        case PaintKind::kCells:
            PaintCells(record, target, operation);
            break;
    }
}

bool Covered(const PaintRecord& record, const CoveredColumns& columns) {
    return columns.left <= 0 && columns.right >= record.width;
}

// Gives each row that is not painted over its pixels of before. Rows from outside the
// picture are left: the move that uncovered them recorded their background.
void MoveRows(PaintRecord* record, const VisibleParts& seen) {
    const int shift = record->origin;
    const size_t bytes = record->width * sizeof(QRgb);
    if (shift == 0) return;
    for (int i = 0; i < record->height; ++i) {
        const int row = shift > 0 ? i : record->height - 1 - i;
        const int source = row + shift;
        if (source < 0 || source >= record->height || Covered(*record, seen.covered[row])) continue;
        memcpy(record->picture.scanLine(row), record->picture.constScanLine(source), bytes);
    }
}

void FillRows(PaintRecord* record, const VisibleParts& seen) {
    for (int row = 0; row < record->height; ++row) {
        if (Covered(*record, seen.covered[row])) continue;
        QRgb* pixels = reinterpret_cast<QRgb*>(record->picture.scanLine(row));
        std::fill(pixels, pixels + record->width, record->uniformColour);
    }
}

VisibleParts visible;  // of MakePixels, which keeps its memory from call to call

}  // namespace

void MakePixels(PaintRecord* record) {
    if (!record->uniform && record->operations.empty() && record->origin == 0) return;
    FindVisibleParts(*record, &visible);
    if (record->uniform) {
        if (record->picture.size() != QSize(record->width, record->height)) {
            record->picture = QImage(record->width, record->height, QImage::Format_RGB32);
        }
        FillRows(record, visible);
    } else {
        MoveRows(record, visible);
    }
    record->uniform = false;
    Target target;
    target.pixels = reinterpret_cast<QRgb*>(record->picture.bits());
    target.stride = record->picture.bytesPerLine() / static_cast<int>(sizeof(QRgb));
    for (auto part = visible.parts.rbegin(); part != visible.parts.rend(); ++part) {
        target.part = *part;
        PaintPart(*record, target);
    }
    ForgetOperations(record);
}
