// The values under the pointer.
#pragma once

#include <QPoint>
#include <vector>

#include "plotter/Recording.h"
#include "plotter/Thinning.h"

class QCPItemLine;
class QCPItemText;
class QCustomPlot;

class Readout {
  public:
    explicit Readout(QCustomPlot& plot);

    void PointAt(const QPoint& place) { pointer = place; }
    void Leave() { pointer = {-1, -1}; }
    // Shows the points nearest to the pointer: of each series that is `shown` one of its first
    // `counts` points.
    void Update(const Recording& recording, const XAxisRule& xOf, const std::vector<bool>& shown,
                const std::vector<size_t>& counts);

  private:
    void Place(double x, const QString& words);

    QCustomPlot& plot;
    QCPItemLine* line;
    QCPItemText* box;
    QPoint pointer{-1, -1};
};
