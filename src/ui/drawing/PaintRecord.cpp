#include "ui/drawing/PaintRecord.h"

#include <QPainter>
#include <algorithm>
#include <cstdlib>

#include "ui/drawing/FontsInternal.h"
#include "ui/drawing/GlyphMasksInternal.h"
#include "ui/drawing/PaintPixelsInternal.h"

namespace {

constexpr int kBoxSideLimit = 4096;         // of a cell's box and pitch
constexpr int kLeftmostCells = -(1 << 24);  // cells that begin further left are not drawn
constexpr int kFarthestOrigin = 1 << 20;    // document rows; keeps sums of positions small
constexpr double kLeastScale = 0.25, kMostScale = 8;

void MakeRoom(PaintRecord* record, int text) {
    if (record->operations.size() >= kMostPaintOperations ||
        record->text.size() + text > kMostPaintText) {
        MakePixels(record);
    }
}

// A box cut to the picture.
QRect CutToPicture(const PaintRecord& record, int x, int y, int width, int height) {
    const int64_t right = std::min<int64_t>(int64_t{x} + width, record.width);
    const int64_t bottom = std::min<int64_t>(int64_t{y} + height, record.height);
    return QRect(QPoint(std::max(x, 0), std::max(y, 0)),
                 QPoint(static_cast<int>(std::max<int64_t>(right, 0)) - 1,
                        static_cast<int>(std::max<int64_t>(bottom, 0)) - 1));
}

void NoteChange(PaintRecord* record, const QRect& place) {
    QRect& changed = record->changed;
    if (place.left() >= changed.left() && place.right() <= changed.right() &&
        place.top() >= changed.top() && place.bottom() <= changed.bottom()) {
        return;
    }
    changed |= place & QRect(0, 0, record->width, record->height);
}

// What reaches the picture's end reaches the end of its pixels.
int RightEdge(const PaintRecord& record, int right) {
    return right == record.width ? MostPixels(right, record.scale) : PixelColumn(record, right);
}

int BottomEdge(const PaintRecord& record, int bottom) {
    if (bottom != record.height) return PixelRow(record, bottom);
    return PixelRow(record, 0) + MostPixels(bottom, record.scale);
}

// A new operation that may touch a place of the picture.
PaintOperation& Append(PaintRecord* record, PaintKind kind, const QRect& place, QRgb colour) {
    MakeRoom(record, 0);
    NoteChange(record, place);
    record->operations.emplace_back();
    PaintOperation& operation = record->operations.back();
    operation.kind = kind;
    operation.colour = colour;
    operation.area = {PixelColumn(*record, place.x()), PixelRow(*record, place.y()),
                      RightEdge(*record, place.x() + place.width()),
                      BottomEdge(*record, place.y() + place.height())};
    return operation;
}

// Without operations the document may begin anywhere.
void ForgetOperations(PaintRecord* record) {
    record->operations.clear();
    record->text.clear();
    record->origin = 0;
    record->phase = kScaleOne / 2;
}

// The cells that can reach into the picture from x on; the rest is not kept.
int ReachingCells(const PaintRecord& record, int x, int count, int pitch) {
    if (pitch <= 0) return count;
    const int64_t reaching = (int64_t{record.width} + kLongestReach - x + pitch - 1) / pitch;
    return static_cast<int>(std::clamp<int64_t>(reaching, 0, std::max(count, 0)));
}

// The widest of some glyphs, and the furthest that their ink leaves their boxes, in pixels.
struct GlyphExtent {
    int widest = 0, reach = 0;
};

GlyphExtent ExtentOf(const CellRun& run, int count, int scale) {
    GlyphExtent extent;
    for (int i = 0; i < count; ++i) {
        const GlyphMask& glyph = GlyphOf(run.look.font, run.text[i], scale);
        extent.widest = std::max(extent.widest, glyph.advance);
        extent.reach = std::max(extent.reach, glyph.reach);
    }
    return extent;
}

}  // namespace

void RecordBox(PaintRecord* record, int x, int y, int width, int height, QRgb colour) {
    const QRect box = CutToPicture(*record, x, y, width, height);
    if (box.isEmpty()) return;
    if (box.size() == QSize(record->width, record->height)) ForgetOperations(record);
    PaintOperation& operation = Append(record, PaintKind::kBox, box, colour);
    operation.cover = operation.area;
}

void RecordXorBox(PaintRecord* record, int x, int y, int width, int height, QRgb colour) {
    constexpr QRgb kColourBits = 0xFFFFFF;
    const QRect box = CutToPicture(*record, x, y, width, height);
    if (!box.isEmpty()) Append(record, PaintKind::kXorBox, box, colour & kColourBits);
}

void RecordCells(PaintRecord* record, int x, int y, const CellRun& run, const CellBoxes& boxes) {
    const int pitch = std::clamp(boxes.pitch, 0, kBoxSideLimit);
    const int boxWidth = std::clamp(boxes.width, 0, kBoxSideLimit);
    const int boxHeight = std::clamp(boxes.height, 0, kBoxSideLimit);
    const int count = ReachingCells(*record, x, run.count, pitch);
    if (count <= 0 || count > kMostPaintText || x < kLeftmostCells) return;
    const bool filled = run.look.fillBox;
    const int glyphHeight = MeasuresOf(run.look.font).height;
    const int height = std::max(filled ? boxHeight : 0, glyphHeight);
    if (y >= record->height + kLongestReach || y <= -height - kLongestReach) return;
    MakeRoom(record, count);
    const GlyphExtent glyphs = ExtentOf(run, count, record->scale);
    const int reach = std::max(filled ? boxWidth : 0, glyphs.widest);
    const int last = pitch * (count - 1);
    const int edge = static_cast<int>((int64_t{glyphs.reach} * kScaleOne) / record->scale) + 1;
    const QRect place(x, y, last + reach, height);
    PaintOperation& cells =
        Append(record, PaintKind::kCells,
               glyphs.reach > 0 ? place.adjusted(-edge, -edge, edge, edge) : place,
               ImageColour(run.look.background));
    cells.ink = ImageColour(run.look.foreground);
    cells.top = PixelRow(*record, y);
    cells.boxBottom = BottomEdge(*record, y + boxHeight);
    cells.glyphBottom = PixelRow(*record, y + glyphHeight);
    cells.x = x;
    cells.pitch = static_cast<int16_t>(pitch);
    cells.boxWidth = static_cast<int16_t>(boxWidth);
    cells.reach = static_cast<int16_t>(reach);
    cells.inkReach = static_cast<int16_t>(glyphs.reach);
    cells.font = run.look.font;
    cells.fillBox = filled;
    if (filled && boxWidth >= pitch) {
        cells.cover = {PixelColumn(*record, x), cells.top,
                       PixelColumn(*record, x + last + boxWidth), cells.boxBottom};
        cells.inkInBoxes = glyphs.reach == 0 && glyphs.widest <= pitch && glyphHeight <= boxHeight;
    }
    cells.text = static_cast<int32_t>(record->text.size());
    cells.count = count;
    record->text.insert(record->text.end(), run.text, run.text + count);
}

void RecordMove(PaintRecord* record, int top, int height, int target, QRgb background) {
    // What of the strip lies in the picture before and after the move.
    const int64_t shift = int64_t{target} - top;
    const int64_t first = std::max<int64_t>({top, 0, -shift});
    const int64_t end =
        std::min<int64_t>({int64_t{top} + height, record->height, record->height - shift});
    if (first >= end) {
        return RecordBox(record, 0, 0, record->width, record->height, background);
    }
    const int keptTop = static_cast<int>(first + shift);
    const int keptBottom = static_cast<int>(end + shift);
    record->origin -= static_cast<int>(shift);
    if (std::abs(record->origin) > kFarthestOrigin) MakePixels(record);
    NoteChange(record, QRect(0, 0, record->width, record->height));
    RecordBox(record, 0, 0, record->width, keptTop, background);
    RecordBox(record, 0, keptBottom, record->width, record->height - keptBottom, background);
}

void ResetPicture(PaintRecord* record, int width, int height) {
    const int longest = static_cast<int>(int64_t{kLongestPictureSide} * kScaleOne / record->scale);
    record->width = std::clamp(width, 1, longest);
    const int rows = kMostPicturePixels / MostPixels(record->width, record->scale);
    const int tallest = static_cast<int>(int64_t{rows} * kScaleOne / record->scale);
    record->height = std::clamp(height, 1, std::min(longest, tallest));
    record->changed = QRect();
    RecordBox(record, 0, 0, record->width, record->height, ImageColour(0xFFFFFF));
}

void FitPicture(PaintRecord* record, int width, int height, double asked) {
    const int scale = qRound(std::clamp(asked, kLeastScale, kMostScale) * kScaleOne);
    if (scale == record->scale && width == record->width && height == record->height) return;
    QImage before = PictureOf(record);
    if (scale != record->scale && !before.isNull()) {
        before = before.scaled(before.size() * scale / record->scale);
    }
    record->scale = scale;
    ResetPicture(record, width, height);
    MakePixels(record);
    QPainter(&record->picture).drawImage(0, 0, before);
}

const QImage& PictureOf(PaintRecord* record) {
    MakePixels(record);
    record->changed = QRect();
    return record->picture;
}
