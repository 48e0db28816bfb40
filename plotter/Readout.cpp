#include "plotter/Readout.h"

#include <qcustomplot.h>

#include "companion/Colours.h"

namespace {

constexpr int kGap = 12;    // pixels from the pointer to the box
constexpr int kDigits = 8;  // of a value

// The point next to `x` among the first `count`, which are some.
size_t NearestPoint(const PointRing& ring, const XAxisRule& xOf, double x, size_t count) {
    const size_t right = std::min(FirstPointFrom(ring, xOf, x), count - 1);
    if (right == 0) return 0;
    const bool leftIsNearer = x - xOf(ring.Row(right - 1)) < std::abs(xOf(ring.Row(right)) - x);
    return leftIsNearer ? right - 1 : right;
}

}  // namespace

Readout::Readout(QCustomPlot& owner)
    : plot(owner), line(new QCPItemLine(&owner)), box(new QCPItemText(&owner)) {
    for (QCPAbstractItem* item :
         {static_cast<QCPAbstractItem*>(line), static_cast<QCPAbstractItem*>(box)}) {
        item->setLayer("overlay");
        item->setVisible(false);
    }
    for (QCPItemPosition* end : {line->start, line->end}) {
        end->setTypeX(QCPItemPosition::ptPlotCoords);
        end->setTypeY(QCPItemPosition::ptAxisRectRatio);
    }
    box->position->setType(QCPItemPosition::ptAbsolute);
    box->setTextAlignment(Qt::AlignLeft);
    box->setPadding({6, 4, 6, 4});
    box->setClipToAxisRect(false);
}

void Readout::Update(const Recording& recording, const XAxisRule& xOf,
                     const std::vector<bool>& shown, const std::vector<size_t>& counts) {
    const bool within = plot.axisRect()->rect().contains(pointer);
    const double wanted = plot.xAxis->pixelToCoord(pointer.x());
    bool any = false;
    double nearest = 0;
    for (size_t i = 0; within && i < shown.size(); ++i) {
        if (!shown[i] || counts[i] == 0) continue;
        const PointRing& ring = recording.All()[i].points;
        const double x = xOf(ring.Row(NearestPoint(ring, xOf, wanted, counts[i])));
        if (!any || std::abs(x - wanted) < std::abs(nearest - wanted)) nearest = x;
        any = true;
    }
    line->setVisible(any);
    box->setVisible(any);
    if (!any) return;
    QString words = xOf.byCount ? QString("line %1").arg(nearest, 0, 'f', 0)
                                : QString::number(nearest, 'f', 3) + " s";
    for (size_t i = 0; i < shown.size(); ++i) {
        if (!shown[i] || counts[i] == 0) continue;
        const PointRing& ring = recording.All()[i].points;
        const double value = ring.Value(NearestPoint(ring, xOf, nearest, counts[i]));
        words += QString("\n%1  %2")
                     .arg(QString::fromStdString(recording.All()[i].name),
                          QString::number(value, 'g', kDigits));
    }
    Place(nearest, words);
}

// To the right of the pointer, or to its left where there is more room.
void Readout::Place(double x, const QString& words) {
    const QPalette palette = plot.palette();
    const QColor text = palette.text().color(), ground = palette.base().color();
    line->start->setCoords(x, 0);
    line->end->setCoords(x, 1);
    line->setPen(QPen(Between(ground, text, 50), 0));
    const QRect area = plot.axisRect()->rect();
    const bool left = pointer.x() > area.center().x(), above = pointer.y() > area.center().y();
    box->setPositionAlignment((left ? Qt::AlignRight : Qt::AlignLeft) |
                              (above ? Qt::AlignBottom : Qt::AlignTop));
    box->position->setCoords(pointer.x() + (left ? -kGap : kGap), pointer.y());
    box->setText(words);
    box->setColor(text);
    box->setBrush(Between(ground, text, 8));
    box->setPen(QPen(Between(ground, text, 40), 0));
}
