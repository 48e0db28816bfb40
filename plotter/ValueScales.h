// The value axes of a plot: one for all series, or one for each.
#pragma once

#include <vector>

#include "plotter/Thinning.h"

class QCPAxis;
class QCPGraph;
class QCustomPlot;

constexpr size_t kMostAxes = 4;  // on show at a time; further series have theirs out of sight

class ValueScales {
  public:
    explicit ValueScales(QCustomPlot& owner) : plot(owner) {}

    // Gives each graph its axis; `shown` tells which series are.
    void Arrange(bool oneEach, const std::vector<bool>& shown);
    // Puts the values that are on show into sight. An axis that has some room to spare stays.
    void Fit(const std::vector<ThinSeries>& series);
    // About the middle, and by a part of the height.
    void Zoom(double factor);
    void Move(double part);

  private:
    QCPAxis* AxisOf(size_t series);
    void Dress(QCPAxis& axis, size_t series);

    QCustomPlot& plot;
    bool oneEach = false;
    std::vector<QCPAxis*> own;  // by series
};
