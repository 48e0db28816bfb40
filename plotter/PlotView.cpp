#include "plotter/PlotView.h"

#include <utility>

#include "plotter/PlotColours.h"

namespace {

constexpr int kFrame = 40;                    // milliseconds between two frames, at the least
constexpr double kFirstSpan[2] = {30, 1000};  // seconds, lines
constexpr double kLeastSpan[2] = {0.002, 2};
constexpr double kMostSpan = 1e10;
constexpr size_t kFewPoints = 4000;  // up to so many are drawn with smooth lines
constexpr int kPixelsForDot = 10;    // a point with more room gets a dot
constexpr double kDot = 4;           // pixels

}  // namespace

PlotView::PlotView(const Recording& given, std::function<void()> changed)
    : recording(given),
      onChange(std::move(changed)),
      scales(*this),
      readout(*this),
      note(new QCPItemText(this)),
      span{kFirstSpan[0], kFirstSpan[1]} {
    setAccessibleName("Plot");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(240, 160);
    xAxis->setNumberFormat("g");
    xAxis->setNumberPrecision(12);
    for (QCPAxis* axis : {xAxis2, yAxis2}) {  // the frame's other sides
        axis->setVisible(true);
        axis->setTicks(false);
        axis->setTickLabels(false);
    }
    note->position->setType(QCPItemPosition::ptAxisRectRatio);
    note->position->setCoords(0.5, 0.5);
    note->setTextAlignment(Qt::AlignCenter);
    frame.setSingleShot(true);
    frame.setInterval(kFrame);
    connect(&frame, &QTimer::timeout, this, [this] { DrawFrame(); });
    connect(this, &QCustomPlot::afterLayout, this,
            [this] { readout.Update(recording, Rule(), shown, counts); });
    Dress(palette());
    SetByCount(false);
}

void PlotView::Dress(const QPalette& palette) {
    DressPlot(*this, palette);
    note->setColor(palette.text().color());
    for (int i = 0; i < graphCount(); ++i) graph(i)->setPen(SeriesPen(size_t(i), palette));
    scales.Arrange(oneScaleEach, shown);
}

void PlotView::ShowNews() {
    if (!frame.isActive()) frame.start();
}

void PlotView::Restart(Mode wanted) {
    clearGraphs();
    shown.clear();
    counts.clear();
    mode = wanted;
    paused = false;
    fitsValues = true;
    scales.Arrange(oneScaleEach, shown);
    Changed();
}

void PlotView::SetNote(const QString& sentence) {
    if (note->text() == sentence) return;
    note->setText(sentence);
    ShowNews();
}

void PlotView::Changed() {
    ShowNews();
    onChange();
}

void PlotView::SetMode(Mode wanted) {
    mode = wanted;
    fitsValues = true;
    if (mode == Mode::kFollow) paused = false;
    Changed();
}

void PlotView::SetPaused(bool wanted) {
    paused = wanted;
    pausedRows = recording.Rows().Total();
    Changed();
}

void PlotView::SetByCount(bool wanted) {
    if (mode == Mode::kFree && byCount != wanted) mode = Mode::kWhole;
    byCount = wanted;
    xAxis->setLabel(byCount ? "Lines" : "Time in seconds");
    Changed();
}

void PlotView::SetOneScaleEach(bool each) {
    oneScaleEach = each;
    fitsValues = true;
    Dress(palette());
    Changed();
}

void PlotView::SetShown(size_t series, bool wanted) {
    shown.at(series) = wanted;
    graph(static_cast<int>(series))->setVisible(wanted);
    scales.Arrange(oneScaleEach, shown);
    Changed();
}

double PlotView::Newest() const {
    const RowTimes& rows = recording.Rows();
    if (rows.Size() == 0) return 0;
    const uint64_t since = paused ? rows.Total() - pausedRows : 0;
    if (since >= rows.Size()) return Rule()(rows.NewestRow());
    return Rule()(rows.NewestRow() - static_cast<uint32_t>(since));
}

double PlotView::Oldest() const {
    const RowTimes& rows = recording.Rows();
    if (rows.Size() == 0) return 0;
    return Rule()(rows.NewestRow() - static_cast<uint32_t>(rows.Size() - 1));
}

void PlotView::PlaceSpan() {
    if (mode == Mode::kFree) return;
    const double oldest = Oldest(), newest = Newest(), least = kLeastSpan[byCount];
    if (mode == Mode::kWhole) return xAxis->setRange(oldest, std::max(newest, oldest + least));
    const double to = std::max(newest, oldest + span[byCount]);
    xAxis->setRange(to - span[byCount], to);
}

void PlotView::AddGraphs() {
    const std::vector<Series>& all = recording.All();
    if (shown.size() == all.size()) return;
    while (shown.size() < all.size()) {
        QCPGraph* added = addGraph();
        added->setName(QString::fromStdString(all[shown.size()].name));
        added->setAdaptiveSampling(false);  // the points are thinned already
        shown.push_back(true);
    }
    Dress(palette());
    onChange();
}

// A line through many points is drawn without smoothing, which costs ten times as much.
void PlotView::DressGraph(int series, size_t points) {
    const bool roomy = points * kPixelsForDot < static_cast<size_t>(axisRect()->width());
    graph(series)->setScatterStyle(roomy ? QCPScatterStyle(QCPScatterStyle::ssDisc, kDot)
                                         : QCPScatterStyle::ssNone);
}

std::vector<ThinSeries> PlotView::DrawSeries() {
    const double pixels = axisRect()->width() * bufferDevicePixelRatio();
    const PlotSpan onShow = {xAxis->range().lower, xAxis->range().upper,
                             std::max(static_cast<int>(pixels), 1)};
    const XAxisRule rows = {&recording.Rows(), true};
    std::vector<ThinSeries> drawn(shown.size());
    counts.assign(shown.size(), 0);
    size_t total = 0;
    for (size_t i = 0; i < shown.size(); ++i) {
        const PointRing& ring = recording.All()[i].points;
        counts[i] = paused ? FirstPointFrom(ring, rows, static_cast<double>(pausedRows) + 0.5)
                           : ring.Size();
        if (shown[i]) drawn[i] = Thin(ring, Rule(), onShow, counts[i]);
        QVector<QCPGraphData> points;
        points.reserve(static_cast<int>(drawn[i].points.size()));
        for (const ThinPoint& point : drawn[i].points) points.append({point.x, point.y});
        graph(static_cast<int>(i))->data()->set(points, true);
        DressGraph(static_cast<int>(i), drawn[i].points.size());
        total += drawn[i].points.size();
    }
    setNotAntialiasedElement(QCP::aePlottables, total > kFewPoints);
    return drawn;
}

void PlotView::DrawFrame() {
    if (!qFuzzyCompare(bufferDevicePixelRatio(), devicePixelRatioF()))
        setBufferDevicePixelRatio(devicePixelRatioF());  // the window went to another screen
    AddGraphs();
    PlaceSpan();
    const std::vector<ThinSeries> drawn = DrawSeries();
    if (fitsValues) scales.Fit(drawn);
    note->setVisible(shown.empty());
    replot(rpQueuedRefresh);
}

void PlotView::ZoomX(double factor) {
    ZoomX(factor, xAxis->range().center());
}

// While it follows, the newest stays where it is.
void PlotView::ZoomX(double factor, double about) {
    const double wanted = xAxis->range().size() * factor;
    if (wanted < kLeastSpan[byCount] || wanted > kMostSpan) return;
    if (mode == Mode::kFollow) {
        span[byCount] = wanted;
    } else {
        mode = Mode::kFree;
        xAxis->scaleRange(factor, about);
    }
    Changed();
}

void PlotView::ZoomY(double factor) {
    fitsValues = false;
    scales.Zoom(factor);
    Changed();
}

void PlotView::MoveX(double part) {
    mode = Mode::kFree;
    xAxis->moveRange(xAxis->range().size() * part);
    Changed();
}

void PlotView::MoveY(double part) {
    fitsValues = false;
    scales.Move(part);
    Changed();
}
