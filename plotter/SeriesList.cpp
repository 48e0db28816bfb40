#include "plotter/SeriesList.h"

#include <QPainter>

#include "plotter/PlotColours.h"
#include "plotter/PlotView.h"

namespace {

constexpr QSize kSample(28, 14);  // of a line, in pixels
constexpr int kDigits = 6;        // of a value

QIcon SampleOf(QPen pen, double ratio) {
    QPixmap picture(kSample * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    pen.setWidth(2);
    painter.setPen(pen);
    painter.drawLine(0, kSample.height() / 2, kSample.width(), kSample.height() / 2);
    return picture;
}

}  // namespace

SeriesList::SeriesList(std::function<void(size_t, bool)> onShown) {
    setAccessibleName("Series");
    setIconSize(kSample);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);  // a long name gives way, not the value
    connect(this, &QListWidget::itemChanged, this,
            [this, onShown = std::move(onShown)](QListWidgetItem* item) {
                onShown(static_cast<size_t>(row(item)), item->checkState() == Qt::Checked);
            });
}

void SeriesList::AddRows(const Recording& recording, const PlotView& view) {
    if (static_cast<size_t>(count()) > recording.All().size()) clear();
    while (static_cast<size_t>(count()) < recording.All().size()) {
        auto* item = new QListWidgetItem(this);
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item->setCheckState(view.IsShown(static_cast<size_t>(row(item))) ? Qt::Checked
                                                                         : Qt::Unchecked);
    }
}

// The values change all the time: that is no doing of the user's.
void SeriesList::Refresh(const Recording& recording, const PlotView& view) {
    const QSignalBlocker quiet(this);
    AddRows(recording, view);
    for (int i = 0; i < count(); ++i) {
        const Series& series = recording.All()[static_cast<size_t>(i)];
        const size_t size = series.points.Size();
        const QString value =
            size > 0 ? QString::number(series.points.Value(size - 1), 'g', kDigits) : QString();
        item(i)->setText(QString::fromStdString(series.name) + "   " + value);
        const QPen pen = SeriesPen(static_cast<size_t>(i), view.palette());
        if (item(i)->data(Qt::UserRole) == pen.color()) continue;
        item(i)->setData(Qt::UserRole, pen.color());
        item(i)->setIcon(SampleOf(pen, devicePixelRatioF()));
    }
}
