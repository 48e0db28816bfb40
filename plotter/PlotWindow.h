// The window: where the lines come from, the plot, the legend, the status line.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QMainWindow>
#include <QSplitter>

#include "plotter/DataFile.h"
#include "plotter/DataPort.h"
#include "plotter/LineCutter.h"
#include "plotter/PlotHabits.h"
#include "plotter/PlotView.h"
#include "plotter/RunningLog.h"
#include "plotter/SeriesList.h"

struct PlotSetup {
    QString host;
    quint16 port;
    QString settingsFile;
    QString guidePage;
};

class PlotWindow : public QMainWindow {
  public:
    explicit PlotWindow(const PlotSetup& setup);

    // Plots what the board prints from now on.
    void Listen();
    // Plots a recorded run, or the standard input ("-"), in place of what is there.
    void OpenRun(const QString& file);
    void AskOpenRun();
    // Connects anew, without forgetting anything.
    void ConnectAgain();
    void Forget();  // all that was received

    void SaveCsv();
    void SavePicture();
    void ToggleLog();  // asks for its file
    void ShowGuide();

    // What the user chose, kept for the next start.
    void SetByCount(bool byCount);
    void SetOneScaleEach(bool each);

    PlotView* View() const { return view; }
    SeriesList* Legend() const { return series; }
    bool IsLogging() const { return log.IsOpen(); }

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void BuildMiddle();
    void BuildStatusLine();
    void Restart(bool isRecordedRun, PlotView::Mode mode);
    void TakeBytes(const QByteArray& bytes);
    void TakeLine(const std::string& line);
    void EndRun();
    void ShowState();
    void EachSecond();
    QString AskPath(const QString& title, const QString& name, const QString& filters);
    void Tell(const QString& sentence, bool good = true);

    PlotSetup setup;
    PlotHabits habits;
    Recording recording;
    LineCutter cutter;
    LineTaker taker;
    DataPort dataPort;
    DataFile dataFile;
    RunningLog log;
    PlotView* view;
    SeriesList* series;
    QSplitter* parts;
    QLabel* state;
    QLabel* logged;
    QLabel* numbers;
    QTimer look, second;
    QElapsedTimer clock;  // since the first point
    QElapsedTimer sinceRate;
    qint64 arrival = 0;  // of the bytes that are looked at, in milliseconds of `clock`
    uint64_t plottedBefore = 0;
    double rate = 0;  // lines that gave points, in a second
};
