// The colours and lines of the plot, on light and on dark ground.
#pragma once

#include <QPalette>
#include <QPen>

class QCustomPlot;

// Of a series by its number: colours first, then the same ones dashed and dotted.
QPen SeriesPen(size_t series, const QPalette& palette);

// Ground, axes, grid and texts.
void DressPlot(QCustomPlot& plot, const QPalette& palette);
