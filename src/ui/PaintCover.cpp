// Which recorded operations can still be seen: the record is walked backwards, and for
// each row of the picture one interval of surely filled columns grows. An operation that
// lies inside the intervals of all its rows, or outside the picture, needs no pixels.
#include <algorithm>

#include "ui/PaintRecord.h"

namespace {

PaintArea AreaOf(const PaintRecord& record, const PaintOperation& operation, int width, int height,
                 int reach) {
    const int left = operation.x - reach;
    const int top = operation.y - record.origin - reach;
    return {std::max(left, 0), std::max(top, 0), std::min(left + width + 2 * reach, record.width),
            std::min(top + height + 2 * reach, record.height)};
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

// Adds one part for each band of neighbouring rows that are covered alike.
void AddParts(const PaintArea& area, int operation, VisibleParts* visible) {
    const std::vector<CoveredColumns>& covered = visible->covered;
    for (int row = area.top; row < area.bottom;) {
        const int top = row;
        while (row < area.bottom && covered[row] == covered[top]) ++row;
        const CoveredColumns open = Uncovered(area, covered[top]);
        if (open.left < open.right) {
            visible->parts.push_back({operation, open.left, top, open.right, row});
        }
    }
}

// One interval a row: an area that touches it widens it, of two apart the wider one stays.
void Cover(const PaintArea& area, VisibleParts* visible) {
    for (int row = area.top; row < area.bottom; ++row) {
        CoveredColumns& covered = visible->covered[row];
        if (covered.left <= area.right && area.left <= covered.right) {
            covered.left = std::min(covered.left, area.left);
            covered.right = std::max(covered.right, area.right);
        } else if (area.right - area.left > covered.right - covered.left) {
            covered = {area.left, area.right};
        }
    }
}

}  // namespace

void FindVisibleParts(const PaintRecord& record, VisibleParts* visible) {
    visible->parts.clear();
    visible->covered.assign(record.height, CoveredColumns());
    for (int i = static_cast<int>(record.operations.size()) - 1; i >= 0; --i) {
        const PaintOperation& operation = record.operations[i];
        const PaintArea area =
            AreaOf(record, operation, operation.width, operation.height, operation.reach);
        if (area.Empty()) continue;
        AddParts(area, i, visible);
        const PaintArea filled =
            AreaOf(record, operation, operation.coverWidth, operation.coverHeight, 0);
        if (!filled.Empty()) Cover(filled, visible);
    }
}
