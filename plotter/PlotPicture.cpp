// The plot as a file.
#include "plotter/PlotColours.h"
#include "plotter/PlotView.h"

namespace {

constexpr double kLittle = 0.001;  // as much room as it takes

}  // namespace

// On paper the ground is white, whatever the desktop is. The legend gets a column of its own, so
// that it covers nothing.
bool PlotView::SavePicture(const QString& path) {
    const bool paper = path.endsWith(".pdf", Qt::CaseInsensitive);
    const bool noteWas = note->visible();
    readout.Leave();
    DrawFrame();
    note->setVisible(false);
    setNotAntialiasedElement(QCP::aePlottables, false);  // which no frame has the time for
    if (paper) Dress(QPalette(Qt::white));
    legend->setVisible(true);
    auto* column = new QCPLayoutGrid;
    plotLayout()->addElement(0, 1, column);
    plotLayout()->setColumnStretchFactor(1, kLittle);
    column->addElement(0, 0, legend);
    column->addElement(1, 0, new QCPLayoutElement(this));  // keeps the legend's rows together
    column->setRowStretchFactor(0, kLittle);
    for (int i = 0; i < graphCount(); ++i) {
        if (!shown[static_cast<size_t>(i)]) graph(i)->removeFromLegend();
    }
    const bool saved = paper ? savePdf(path) : savePng(path, 0, 0, devicePixelRatioF());
    for (int i = 0; i < graphCount(); ++i) graph(i)->addToLegend();
    axisRect()->insetLayout()->addElement(legend, Qt::AlignRight | Qt::AlignTop);
    plotLayout()->remove(column);
    plotLayout()->simplify();
    legend->setVisible(false);
    note->setVisible(noteWas);
    Dress(palette());
    ShowNews();
    return saved;
}
