// The points of a series that make a difference to the picture.
#pragma once

#include <vector>

#include "plotter/PointRing.h"
#include "plotter/RowTimes.h"

struct ThinPoint {
    double x, y;
};

// What is on show, and how many columns of pixels it has.
struct PlotSpan {
    double from, to;
    int columns;
};

struct ThinSeries {
    std::vector<ThinPoint> points;   // by rising x
    bool any = false;                // a point lies within the span
    double lowest = 0, highest = 0;  // of those
};

// The first point that is not left of `x`; Size() when there is none.
size_t FirstPointFrom(const PointRing& ring, const XAxisRule& xOf, double x);

// Of each column of pixels the first, lowest, highest and last point, and those to the left and
// right of the span where lines lead. Looks at the first `count` points of the ring.
ThinSeries Thin(const PointRing& ring, const XAxisRule& xOf, const PlotSpan& span, size_t count);
