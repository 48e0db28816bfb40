#include "plotter/Thinning.h"

#include <algorithm>
#include <cmath>

namespace {

struct Column {
    double number;  // -1: left of the span
    size_t points = 0;
    ThinPoint first = {}, last = {};
    double lowest = 0, highest = 0;
};

double NumberOf(double x, const PlotSpan& span) {
    if (x < span.from) return -1;
    if (x > span.to) return span.columns + 1.0;
    return std::floor((x - span.from) / (span.to - span.from) * span.columns);
}

// The lowest and highest stand at the first one's place: within a column that is all the same.
void PutColumn(const Column& column, std::vector<ThinPoint>& points) {
    if (column.points == 0) return;
    points.push_back(column.first);
    if (column.points > 2) {
        points.push_back({column.first.x, column.lowest});
        points.push_back({column.first.x, column.highest});
    }
    if (column.points > 1) points.push_back(column.last);
}

void AddRange(Column& column, const ThinPoint& first, const ThinPoint& last, double lowest,
              double highest, size_t count) {
    if (column.points == 0) column.first = first;
    column.lowest = column.points == 0 ? lowest : std::min(column.lowest, lowest);
    column.highest = column.points == 0 ? highest : std::max(column.highest, highest);
    column.last = last;
    column.points += count;
}

void NoteExtent(ThinSeries& series, const Column& column, const PlotSpan& span) {
    if (column.points == 0 || column.number < 0 || column.number > span.columns) return;
    series.lowest = series.any ? std::min(series.lowest, column.lowest) : column.lowest;
    series.highest = series.any ? std::max(series.highest, column.highest) : column.highest;
    series.any = true;
}

}  // namespace

size_t FirstPointFrom(const PointRing& ring, const XAxisRule& xOf, double x) {
    size_t low = 0, high = ring.Size();
    while (low < high) {
        const size_t middle = (low + high) / 2;
        if (xOf(ring.Row(middle)) < x) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

ThinSeries Thin(const PointRing& ring, const XAxisRule& xOf, const PlotSpan& span, size_t count) {
    ThinSeries series;
    const size_t start = FirstPointFrom(ring, xOf, span.from);
    Column column = {-1};
    for (size_t i = start > 0 ? start - 1 : 0; i < count;) {
        const ThinPoint first = {xOf(ring.Row(i)), ring.Value(i)};
        const double number = NumberOf(first.x, span);
        if (number != column.number) {
            NoteExtent(series, column, span);
            PutColumn(column, series.points);
            column = {number};
        }
        const size_t block = ring.WholeBlockAt(i);
        const size_t behind = i + block - 1;
        if (block > 0 && behind < count && NumberOf(xOf(ring.Row(behind)), span) == number) {
            const ThinPoint last = {xOf(ring.Row(behind)), ring.Value(behind)};
            AddRange(column, first, last, ring.Lowest(i), ring.Highest(i), block);
            i += block;
        } else {
            AddRange(column, first, first, first.y, first.y, 1);
            ++i;
        }
        if (number > span.columns) break;  // where the line leads
    }
    NoteExtent(series, column, span);
    PutColumn(column, series.points);
    return series;
}
