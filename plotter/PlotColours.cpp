#include "plotter/PlotColours.h"

#include <qcustomplot.h>

#include "companion/Colours.h"

namespace {

constexpr int kGridStrength = 18;  // per cent of the text's

struct SeriesColour {
    QRgb onLight, onDark;
};

// Told apart by brightness as well, for who sees few colours.
const SeriesColour kColours[] = {
    {0xFF1F66B0, 0xFF6DB3F2}, {0xFFC8501E, 0xFFFF9A5C}, {0xFF23803B, 0xFF6FD68A},
    {0xFFB02A5B, 0xFFFF86B0}, {0xFF6E4BB5, 0xFFB9A2F5}, {0xFF8A6A00, 0xFFE6C84F},
    {0xFF007C85, 0xFF4FD0D6}, {0xFF7A4A2B, 0xFFD9A982}, {0xFF555555, 0xFFC4C4C4},
    {0xFFA82222, 0xFFFF7B72},
};
constexpr size_t kColourCount = sizeof kColours / sizeof kColours[0];
const Qt::PenStyle kStyles[] = {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine};

}  // namespace

QPen SeriesPen(size_t series, const QPalette& palette) {
    const SeriesColour& colour = kColours[series % kColourCount];
    return QPen(QColor::fromRgb(IsDark(palette) ? colour.onDark : colour.onLight), 1,
                kStyles[series / kColourCount % 4]);
}

void DressPlot(QCustomPlot& plot, const QPalette& palette) {
    const QColor ground = palette.base().color(), text = palette.text().color();
    const QColor faint = Between(ground, text, kGridStrength);
    plot.setBackground(ground);
    for (QCPAxis* axis : plot.axisRect()->axes()) {
        axis->setBasePen(text);
        axis->setTickPen(text);
        axis->setSubTickPen(text);
        axis->setLabelColor(text);
        axis->setTickLabelColor(text);
        axis->grid()->setPen(QPen(faint, 0, Qt::DotLine));
        axis->grid()->setZeroLinePen(QPen(Between(ground, text, 2 * kGridStrength), 0));
    }
    plot.legend->setBrush(ground);
    plot.legend->setBorderPen(Qt::NoPen);
    plot.legend->setTextColor(text);
}
