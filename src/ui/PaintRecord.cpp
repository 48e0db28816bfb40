#include "ui/PaintRecord.h"

#include <algorithm>

#include "ui/GlyphMasks.h"

namespace {

// Cells that begin further left are not drawn at all; keeps sums of positions small.
constexpr int kLeftmostCells = -(1 << 24);

uint64_t latestStamp = 0;

// A picture that nobody looks at may scroll for ever. Once all of it has moved out, how far
// makes no difference.
void BoundOrigin(PaintRecord* record) {
    const int bounded = std::clamp(record->origin, -record->height, record->height);
    for (PaintOperation& operation : record->operations) operation.y -= record->origin - bounded;
    record->origin = bounded;
}

// Drops the operations that cannot be seen any more. Their spans stay, since others may
// share them.
void DropHidden(PaintRecord* record) {
    VisibleParts visible;
    FindVisibleParts(*record, &visible);
    std::vector<PaintOperation> kept;
    int32_t last = -1;
    for (const VisiblePart& part : visible.parts) {
        if (part.operation == last) continue;
        last = part.operation;
        kept.push_back(record->operations[last]);
    }
    record->operations.assign(kept.rbegin(), kept.rend());
    BoundOrigin(record);
}

void MakeRoom(PaintRecord* record, int spans, size_t text) {
    if (record->spans.size() + spans > kMostPaintSpans ||
        record->text.size() + text > kMostPaintText) {
        return MakePixels(record);
    }
    if (record->operations.size() < kMostPaintOperations) return;
    DropHidden(record);
    if (record->operations.size() > kMostPaintOperations / 2) MakePixels(record);
}

void NoteChange(PaintRecord* record, const PaintArea& area) {
    PaintArea& changed = record->changed;
    if (area.left >= changed.left && area.top >= changed.top && area.right <= changed.right &&
        area.bottom <= changed.bottom) {
        return;
    }
    const PaintArea cut = {std::max(area.left, 0), std::max(area.top, 0),
                           std::min(area.right, record->width),
                           std::min(area.bottom, record->height)};
    if (cut.Empty()) return;
    if (changed.Empty()) {
        changed = cut;
        return;
    }
    changed.left = std::min(changed.left, cut.left);
    changed.top = std::min(changed.top, cut.top);
    changed.right = std::max(changed.right, cut.right);
    changed.bottom = std::max(changed.bottom, cut.bottom);
}

void NoteWholeChange(PaintRecord* record) {
    record->changed = {0, 0, record->width, record->height};
}

// A new operation with its place, in picture coordinates, and the size it may touch.
PaintOperation& Append(PaintRecord* record, int x, int y, int width, int height) {
    NoteChange(record, {x, y, x + width, y + height});
    record->operations.emplace_back();
    PaintOperation& operation = record->operations.back();
    operation.x = x;
    operation.y = y + record->origin;
    operation.width = width;
    operation.height = height;
    return operation;
}

PaintOperation& AppendBox(PaintRecord* record, const PaintArea& box, QRgb colour) {
    MakeRoom(record, 0, 0);
    PaintOperation& operation =
        Append(record, box.left, box.top, box.right - box.left, box.bottom - box.top);
    operation.colour = colour;
    return operation;
}

// A box cut to the picture.
PaintArea CutToPicture(const PaintRecord& record, int x, int y, int width, int height) {
    const int64_t right = std::min<int64_t>(int64_t{x} + width, record.width);
    const int64_t bottom = std::min<int64_t>(int64_t{y} + height, record.height);
    return {std::max(x, 0), std::max(y, 0), static_cast<int>(std::max<int64_t>(right, 0)),
            static_cast<int>(std::max<int64_t>(bottom, 0))};
}

bool CoversPicture(const PaintRecord& record, const PaintArea& area) {
    return area.left == 0 && area.top == 0 && area.right == record.width &&
           area.bottom == record.height;
}

bool IsPlainAscii(char16_t c) {
    return static_cast<char16_t>(c - ' ') <= '~' - ' ';
}

int WidestGlyph(const char16_t* text, int count, int font) {
    int widest = WidestAsciiGlyph(font);
    bool plain = true;
    for (int i = 0; i < count; ++i) plain &= IsPlainAscii(text[i]);
    if (plain) return widest;
    for (int i = 0; i < count; ++i) {
        if (!IsPlainAscii(text[i]) && text[i]) {
            widest = std::max(widest, GlyphWidth(font, text[i]));
        }
    }
    return widest;
}

// With no pitch all cells fall on one place. Then only the last stays to be seen, and what
// reaches out of its box.
int CopyStackedCells(const CellRun& run, const CellBoxes& boxes, char16_t* out) {
    const int font = run.look.font;
    const bool boxesCover = run.look.fillBox && GlyphHeight(font) <= boxes.height;
    const bool asciiFits = WidestAsciiGlyph(font) <= boxes.width;
    int kept = 0;
    for (int i = 0; i < run.count; ++i) {
        const char16_t c = run.text[i];
        const bool fits = LongestReach(font, &c, 1) == 0 &&
                          ((asciiFits && IsPlainAscii(c)) || GlyphWidth(font, c) <= boxes.width);
        if (i + 1 == run.count || !boxesCover || !fits) out[kept++] = c;
    }
    return kept;
}

const PaintSpan& AppendSpan(PaintRecord* record, const CellRun& run, int count,
                            const CellBoxes& boxes) {
    const size_t at = record->text.size();
    if (boxes.pitch > 0) {
        record->text.insert(record->text.end(), run.text, run.text + count);
    } else {
        record->text.resize(at + count);
        count = CopyStackedCells(run, boxes, record->text.data() + at);
        record->text.resize(at + count);
    }
    record->spans.emplace_back();
    PaintSpan& span = record->spans.back();
    span.text = static_cast<int32_t>(at);
    span.count = count;
    span.foreground = ImageColour(run.look.foreground);
    span.background = ImageColour(run.look.background);
    span.font = run.look.font;
    span.fillBox = run.look.fillBox;
    const char16_t* const kept = record->text.data() + at;
    span.widest = static_cast<int16_t>(WidestGlyph(kept, count, run.look.font));
    span.reach = static_cast<int16_t>(LongestReach(run.look.font, kept, count));
    return span;
}

CellBoxes Bounded(const CellBoxes& boxes) {
    return {std::clamp(boxes.pitch, 0, kBoxSideLimit), std::clamp(boxes.width, 0, kBoxSideLimit),
            std::clamp(boxes.height, 0, kBoxSideLimit)};
}

// The cells that can reach into the picture from x on; the rest is not kept.
int ReachingCells(const PaintRecord& record, int64_t x, int count, int pitch) {
    if (pitch <= 0 || count <= 0) return std::max(count, 0);
    const int64_t reaching = (record.width - x + pitch - 1) / pitch;
    return static_cast<int>(std::clamp<int64_t>(reaching, 0, count));
}

// Appends the spans of `runs` and works out the area of all their cells.
void AppendSpans(PaintRecord* record, const CellRun* runs, int count, KeptCells* kept) {
    const CellBoxes& boxes = kept->boxes;
    int cells = 0;
    bool filled = boxes.width >= boxes.pitch;
    for (int i = 0; i < count; ++i) {
        const int64_t left = kept->x + int64_t{cells} * boxes.pitch;
        const int reaching = ReachingCells(*record, left, runs[i].count, boxes.pitch);
        if (reaching <= 0) continue;
        const PaintSpan& span = AppendSpan(record, runs[i], reaching, boxes);
        cells += boxes.pitch > 0 ? span.count : 0;
        const int before = boxes.pitch > 0 ? (cells - 1) * boxes.pitch : 0;
        const int box = span.fillBox ? boxes.width : 0;
        kept->width = std::max(kept->width, before + std::max<int>(box, span.widest));
        kept->height =
            std::max({kept->height, span.fillBox ? boxes.height : 0, GlyphHeight(span.font)});
        kept->coverWidth = before + box;
        kept->reach = std::max<int>(kept->reach, span.reach);
        filled &= span.fillBox;
        ++kept->spans;
    }
    if (!filled) kept->coverWidth = 0;
    kept->coverHeight = kept->coverWidth > 0 ? boxes.height : 0;
}

size_t CellsOf(const CellRun* runs, int count) {
    size_t cells = 0;
    for (int i = 0; i < count; ++i) cells += runs[i].count > 0 ? runs[i].count : 0;
    return cells;
}

}  // namespace

void ForgetOperations(PaintRecord* record) {
    record->operations.clear();
    record->spans.clear();
    record->text.clear();
    record->origin = 0;
    record->stamp = ++latestStamp;
}

void MakeUniform(PaintRecord* record, QRgb colour) {
    ForgetOperations(record);
    record->uniform = true;
    record->uniformColour = colour;
    NoteWholeChange(record);
}

void RecordBox(PaintRecord* record, int x, int y, int width, int height, QRgb colour) {
    const PaintArea box = CutToPicture(*record, x, y, width, height);
    if (box.Empty()) return;
    if (CoversPicture(*record, box)) return MakeUniform(record, colour);
    PaintOperation& operation = AppendBox(record, box, colour);
    operation.coverWidth = operation.width;
    operation.coverHeight = operation.height;
}

void RecordXorBox(PaintRecord* record, int x, int y, int width, int height, QRgb colour) {
    const PaintArea box = CutToPicture(*record, x, y, width, height);
    if (box.Empty()) return;
    constexpr QRgb kColourBits = 0xFFFFFF;
    AppendBox(record, box, colour & kColourBits).kind = PaintKind::kXorBox;
}

KeptCells RecordCells(PaintRecord* record, int x, int y, const CellRun* runs, int count,
                      const CellBoxes& boxes) {
    KeptCells kept;
    kept.x = x;
    kept.boxes = Bounded(boxes);
    const size_t text = CellsOf(runs, count);
    if (text == 0 || text > kMostPaintText || count > kMostPaintSpans) return kept;
    if (x < kLeftmostCells) return kept;
    MakeRoom(record, count, text);
    kept.firstSpan = static_cast<int32_t>(record->spans.size());
    AppendSpans(record, runs, count, &kept);
    kept.stamp = record->stamp;
    RecordKeptCells(record, y, kept);
    return kept;
}

bool RecordKeptCells(PaintRecord* record, int y, const KeptCells& kept) {
    MakeRoom(record, 0, 0);
    if (kept.stamp != record->stamp) return false;
    const int reach = kept.reach;
    if (kept.spans == 0 || kept.x - reach >= record->width) return true;
    if (y - reach >= record->height || y + reach <= -kept.height) return true;
    NoteChange(record,
               {kept.x - reach, y - reach, kept.x + kept.width + reach, y + kept.height + reach});
    PaintOperation& operation = Append(record, kept.x, y, kept.width, kept.height);
    operation.reach = reach;
    operation.kind = PaintKind::kCells;
    operation.pitch = static_cast<int16_t>(kept.boxes.pitch);
    operation.boxWidth = static_cast<int16_t>(kept.boxes.width);
    operation.boxHeight = static_cast<int16_t>(kept.boxes.height);
    operation.coverWidth = kept.coverWidth;
    operation.coverHeight = kept.coverHeight;
    operation.firstSpan = kept.firstSpan;
    operation.spans = kept.spans;
    return true;
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
    NoteWholeChange(record);
    RecordBox(record, 0, 0, record->width, keptTop, background);
    RecordBox(record, 0, keptBottom, record->width, record->height - keptBottom, background);
}
