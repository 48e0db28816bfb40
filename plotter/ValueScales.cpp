#include "plotter/ValueScales.h"

#include <qcustomplot.h>

namespace {

constexpr double kMargin = 0.06;   // of the values' range, above and below
constexpr double kLeastUse = 0.6;  // of an axis, before it is drawn in

// A range without height would have no ticks.
QCPRange RangeFor(double lowest, double highest) {
    const double height = highest - lowest;
    const double margin = height > 0 ? height * kMargin : std::max(std::abs(highest) * 0.1, 1.0);
    return {lowest - margin, highest + margin};
}

void FitAxis(QCPAxis& axis, double lowest, double highest) {
    const QCPRange now = axis.range();
    const bool inside = lowest >= now.lower && highest <= now.upper;
    if (inside && highest - lowest > now.size() * kLeastUse) return;
    const QCPRange wanted = RangeFor(lowest, highest);
    if (!inside || wanted.size() < now.size() * kLeastUse) axis.setRange(wanted);
}

}  // namespace

QCPAxis* ValueScales::AxisOf(size_t series) {
    while (own.size() <= series) {
        own.push_back(plot.axisRect()->addAxis(QCPAxis::atLeft));
        own.back()->setLayer("axes");
        own.back()->setVisible(false);
    }
    return oneEach ? own[series] : plot.yAxis;
}

void ValueScales::Dress(QCPAxis& axis, size_t series) {
    const QCPGraph* graph = plot.graph(static_cast<int>(series));
    const QColor colour = graph->pen().color();
    axis.setLabel(graph->name());
    axis.setLabelColor(colour);
    axis.setTickLabelColor(colour);
    axis.setBasePen(colour);
    axis.setTickPen(colour);
    axis.setSubTickPen(colour);
}

void ValueScales::Arrange(bool each, const std::vector<bool>& shown) {
    oneEach = each;
    size_t visible = 0;
    for (int i = 0; i < plot.graphCount(); ++i) {
        const auto series = static_cast<size_t>(i);
        QCPAxis* axis = AxisOf(series);
        plot.graph(i)->setValueAxis(axis);
        Dress(*own[series], series);
        const bool seen = oneEach && shown[series] && visible < kMostAxes;
        own[series]->setVisible(seen);
        own[series]->grid()->setVisible(seen && visible == 0);
        visible += seen;
    }
    plot.yAxis->setVisible(!oneEach);
    plot.yAxis->grid()->setVisible(!oneEach);
}

void ValueScales::Fit(const std::vector<ThinSeries>& series) {
    bool any = false;
    double lowest = 0, highest = 0;
    for (size_t i = 0; i < series.size(); ++i) {
        if (!series[i].any) continue;
        if (oneEach) FitAxis(*AxisOf(i), series[i].lowest, series[i].highest);
        lowest = any ? std::min(lowest, series[i].lowest) : series[i].lowest;
        highest = any ? std::max(highest, series[i].highest) : series[i].highest;
        any = true;
    }
    if (any && !oneEach) FitAxis(*plot.yAxis, lowest, highest);
}

void ValueScales::Zoom(double factor) {
    plot.yAxis->scaleRange(factor);
    for (QCPAxis* axis : own) axis->scaleRange(factor);
}

void ValueScales::Move(double part) {
    plot.yAxis->moveRange(plot.yAxis->range().size() * part);
    for (QCPAxis* axis : own) axis->moveRange(axis->range().size() * part);
}
