#include "plotter/PlotWindow.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QScreen>
#include <QStatusBar>
#include <QUrl>

#include "plotter/PlotCommands.h"

namespace {

constexpr int kLook = 250;     // milliseconds between two looks at how it stands
constexpr int kSecond = 1000;  // milliseconds
constexpr QSize kFirstSize(960, 600);
constexpr double kMostOfScreen = 0.9;
constexpr int kStatusGap = 8;  // pixels
constexpr int kLegendWidth = 190;

}  // namespace

PlotWindow::PlotWindow(const PlotSetup& given)
    : setup(given),
      habits(given.settingsFile),
      taker([this](const std::string& line) { TakeLine(line); }),
      dataPort(
          given.host, given.port, [this](const QByteArray& bytes) { TakeBytes(bytes); },
          [this](bool inMidLine) { cutter.Restart(inMidLine); }),
      dataFile([this](const QByteArray& bytes) { bytes.isEmpty() ? EndRun() : TakeBytes(bytes); }),
      view(new PlotView(recording, [this] { ShowTicks(*this); })),
      series(new SeriesList([this](size_t number, bool shown) { view->SetShown(number, shown); })) {
    BuildMiddle();
    BuildStatusLine();
    AddCommands(*this);
    resize(kFirstSize.boundedTo(screen()->availableSize() * kMostOfScreen));
    restoreGeometry(habits.Place());
    parts->restoreState(habits.Parts());
    view->SetOneScaleEach(habits.OneScaleEach());
    connect(&look, &QTimer::timeout, this, [this] { ShowState(); });
    connect(&second, &QTimer::timeout, this, [this] { EachSecond(); });
    look.start(kLook);
    second.start(kSecond);
    sinceRate.start();
    view->setFocus();
}

void PlotWindow::BuildMiddle() {
    parts = new QSplitter(this);
    parts->addWidget(view);
    parts->addWidget(series);
    parts->setStretchFactor(0, 1);
    parts->setSizes({kFirstSize.width() - kLegendWidth, kLegendWidth});
    setCentralWidget(parts);
}

void PlotWindow::BuildStatusLine() {
    state = new QLabel(this);
    state->setAccessibleName("Where the numbers come from");
    state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    logged = new QLabel(this);
    numbers = new QLabel(this);
    numbers->setAccessibleName("Lines and points");
    statusBar()->addWidget(state, 1);
    for (QLabel* label : {logged, numbers}) {
        label->setContentsMargins(kStatusGap, 0, kStatusGap, 0);
        statusBar()->addPermanentWidget(label);
    }
}

void PlotWindow::Restart(bool isRecordedRun, PlotView::Mode mode) {
    recording.Restart(isRecordedRun);
    cutter.Restart(false);
    plottedBefore = 0;
    series->clear();
    view->Restart(mode);
    view->SetByCount(habits.ByCount());
    ShowState();
}

void PlotWindow::Listen() {
    dataFile.Close();
    Restart(false, PlotView::Mode::kFollow);
    setWindowTitle(QString("%1:%2 - KWPlot").arg(setup.host).arg(setup.port));
    dataPort.Open();
    ShowState();
}

void PlotWindow::OpenRun(const QString& file) {
    dataPort.Close();
    dataFile.Open(file);
    Restart(true, dataFile.IsWhole() ? PlotView::Mode::kWhole : PlotView::Mode::kFollow);
    setWindowTitle((file == "-" ? QString("Standard input") : QFileInfo(file).fileName()) +
                   " - KWPlot");
    ShowState();
}

// A file that tells no times came in one moment: the count is what there is to see.
void PlotWindow::EndRun() {
    cutter.Finish(taker);
    if (dataFile.IsWhole() && !recording.HasTimeColumn()) view->SetByCount(true);
    view->ShowNews();
    ShowState();
}

void PlotWindow::ConnectAgain() {
    if (!dataPort.IsOpen()) return Listen();
    dataPort.Close();
    dataPort.Open();
}

void PlotWindow::Forget() {
    recording.Forget();
    plottedBefore = 0;
    view->SetPaused(false);
}

void PlotWindow::TakeBytes(const QByteArray& bytes) {
    if (recording.Rows().Size() == 0) clock.start();
    arrival = clock.elapsed();
    cutter.Feed(bytes.constData(), static_cast<size_t>(bytes.size()), taker);
    view->ShowNews();
}

void PlotWindow::TakeLine(const std::string& line) {
    if (recording.TakeLine(line, static_cast<double>(arrival) / 1000)) log.AddRow(recording);
}

void PlotWindow::ShowState() {
    const QString sentence = dataPort.IsOpen() ? dataPort.Sentence() : dataFile.Sentence();
    state->setText(sentence);
    state->setToolTip(sentence);
    view->SetNote(QString(sentence).replace(": ", ":\n"));
    numbers->setText(QString("%L1 lines read, %L2 skipped, %L3 points/s")
                         .arg(recording.LinesRead())
                         .arg(recording.LinesSkipped())
                         .arg(rate, 0, 'f', 0) +
                     (recording.HadTooManySeries() ? ", more than 32 series" : ""));
    logged->setText(log.IsOpen() ? "Log: " + QFileInfo(log.Path()).fileName() : QString());
    series->Refresh(recording, *view);
}

void PlotWindow::EachSecond() {
    const double seconds = static_cast<double>(sinceRate.restart()) / 1000;
    rate = static_cast<double>(recording.LinesPlotted() - plottedBefore) / std::max(seconds, 0.1);
    plottedBefore = recording.LinesPlotted();
    if (!log.IsOpen() || log.Flush()) return;
    ShowTicks(*this);
    Tell("The log has ended: " + log.Path() + " cannot be written", false);
}

void PlotWindow::SetByCount(bool byCount) {
    view->SetByCount(byCount);
    habits.SetLook(byCount, view->HasOneScaleEach());
}

void PlotWindow::SetOneScaleEach(bool each) {
    view->SetOneScaleEach(each);
    habits.SetLook(habits.ByCount(), each);
}

void PlotWindow::ShowGuide() {
    QDesktopServices::openUrl(QUrl::fromLocalFile(setup.guidePage));
}

void PlotWindow::closeEvent(QCloseEvent*) {
    log.End();
    habits.SetPlace(saveGeometry(), parts->saveState());
}
