#include "ui/drawing/PaintCoverInternal.h"

#include <algorithm>

#include "ui/drawing/PaintRecord.h"

namespace {

// A part of the document cut to the picture.
PaintArea InPicture(const PaintArea& area, int top, int columns, int rows) {
    return {std::max(area.left, 0), std::max(area.top - top, 0), std::min(area.right, columns),
            std::min(area.bottom - top, rows)};
}

// The columns of an area that lie outside the covered ones, with what is between.
CoveredColumns Uncovered(const PaintArea& area, const CoveredColumns& covered) {
    CoveredColumns open = {area.left, area.right};
    if (covered.left <= open.left && covered.right > open.left) {
        open.left = std::min(covered.right, open.right);
    }
    if (covered.right >= open.right && covered.left < open.right) {
        open.right = std::max(covered.left, open.left);
    }
    return open;
}

bool Alike(const CoveredColumns& a, const CoveredColumns& b) {
    return a.left == b.left && a.right == b.right;
}

// Around all that lies outside the covered columns. Neighbouring rows are often covered alike.
PaintArea SeenPart(const PaintArea& area, const CoveredColumns* covered) {
    PaintArea seen = {area.right, area.bottom, area.left, area.top};
    for (int row = area.top; row < area.bottom;) {
        const int top = row;
        while (row < area.bottom && Alike(covered[row], covered[top])) ++row;
        const CoveredColumns open = Uncovered(area, covered[top]);
        if (open.left >= open.right) continue;
        seen.left = std::min(seen.left, open.left);
        seen.right = std::max(seen.right, open.right);
        seen.top = std::min(seen.top, top);
        seen.bottom = row;
    }
    return seen;
}

// One interval a row: an area that touches it widens it, of two apart the wider one stays.
void Cover(const PaintArea& area, CoveredColumns* rows) {
    if (area.left >= area.right) return;
    for (int row = area.top; row < area.bottom; ++row) {
        CoveredColumns& covered = rows[row];
        if (covered.left <= area.right && area.left <= covered.right) {
            covered.left = std::min(covered.left, area.left);
            covered.right = std::max(covered.right, area.right);
        } else if (area.right - area.left > covered.right - covered.left) {
            covered = {area.left, area.right};
        }
    }
}

}  // namespace

void FindSeenParts(PaintRecord* record, std::vector<CoveredColumns>* covered) {
    const int columns = MostPixels(record->width, record->scale);
    const int rows = MostPixels(record->height, record->scale);
    const int top = PixelRow(*record, 0);
    covered->assign(rows, CoveredColumns());
    for (auto operation = record->operations.rbegin(); operation != record->operations.rend();
         ++operation) {
        const PaintArea area = InPicture(operation->area, top, columns, rows);
        operation->seen = area.Empty() ? PaintArea() : SeenPart(area, covered->data());
        if (operation->seen.Empty()) continue;
        // Rows in which nothing of it is seen are covered already as far as it reaches.
        PaintArea filled = InPicture(operation->cover, top, columns, rows);
        filled.top = std::max(filled.top, operation->seen.top);
        filled.bottom = std::min(filled.bottom, operation->seen.bottom);
        Cover(filled, covered->data());
    }
}
