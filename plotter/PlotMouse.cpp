// The mouse on the plot: drag, wheel, double click, and the readout under the pointer.
#include <algorithm>
#include <cmath>

#include "plotter/PlotView.h"

namespace {

constexpr double kWheelStep = 0.8;   // of the range, for each step of the wheel
constexpr double kWheelUnits = 120;  // of a step
constexpr int kClimb = 12;           // pixels; a drag to the side wavers by less

}  // namespace

void PlotView::mousePressEvent(QMouseEvent* event) {
    isDragging = event->button() == Qt::LeftButton && axisRect()->rect().contains(event->pos());
    dragged = event->pos();
    climbed = 0;
    setFocus();
}

void PlotView::mouseMoveEvent(QMouseEvent* event) {
    readout.PointAt(event->pos());
    ShowNews();
    if (!isDragging) return;
    const QPoint way = event->pos() - dragged;
    dragged = event->pos();
    if (way.x() != 0) MoveX(-double(way.x()) / std::max(axisRect()->width(), 1));
    climbed += way.y();
    if (fitsValues && std::abs(climbed) < kClimb) return;
    MoveY(double(fitsValues ? climbed : way.y()) / std::max(axisRect()->height(), 1));
}

void PlotView::mouseReleaseEvent(QMouseEvent*) {
    isDragging = false;
}

void PlotView::mouseDoubleClickEvent(QMouseEvent*) {
    SetMode(Mode::kWhole);
}

void PlotView::wheelEvent(QWheelEvent* event) {
    const double factor = std::pow(kWheelStep, event->angleDelta().y() / kWheelUnits);
    if (event->modifiers() & Qt::ControlModifier) return ZoomY(factor);
    ZoomX(factor, xAxis->pixelToCoord(event->position().x()));
}

void PlotView::leaveEvent(QEvent*) {
    readout.Leave();
    ShowNews();
}

void PlotView::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    Dress(palette());
    ShowNews();
}
