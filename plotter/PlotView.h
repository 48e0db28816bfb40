// The picture of a recording, and how it is looked at.
#pragma once

#include <qcustomplot.h>

#include <QTimer>
#include <functional>

#include "plotter/Readout.h"
#include "plotter/Recording.h"
#include "plotter/ValueScales.h"

class PlotView : public QCustomPlot {
  public:
    enum class Mode {
        kFollow,  // the newest, as much of it as was chosen
        kWhole,   // all that is kept, while it grows
        kFree,    // what the user went to
    };

    // `recording` outlives the view; `onChange` is called when the user changed how it looks.
    PlotView(const Recording& recording, std::function<void()> onChange);

    // Something was received, or the recording was restarted: seen by the next frame.
    void ShowNews();
    void Restart(Mode mode);
    // Shown in the middle while there is nothing to plot.
    void SetNote(const QString& sentence);

    void SetMode(Mode mode);
    void SetPaused(bool paused);  // the picture stands, the recording goes on
    void SetByCount(bool byCount);
    void SetOneScaleEach(bool each);
    void SetShown(size_t series, bool shown);
    Mode ShownMode() const { return mode; }
    bool IsPaused() const { return paused; }
    bool IsByCount() const { return byCount; }
    bool HasOneScaleEach() const { return oneScaleEach; }
    bool IsShown(size_t series) const { return series >= shown.size() || shown[series]; }

    // By a factor, about the middle or a place of the axis; by a part of what is on show.
    void ZoomX(double factor);
    void ZoomX(double factor, double about);
    void ZoomY(double factor);
    void MoveX(double part);
    void MoveY(double part);

    // PDF by that ending, PNG otherwise, with a legend. False when it can't be written.
    bool SavePicture(const QString& path);

  protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void DrawFrame();
    void AddGraphs();
    void PlaceSpan();
    std::vector<ThinSeries> DrawSeries();
    void DressGraph(int series, size_t points);
    void Dress(const QPalette& palette);
    void Changed();
    XAxisRule Rule() const { return {&recording.Rows(), byCount}; }
    double Newest() const;
    double Oldest() const;

    const Recording& recording;
    std::function<void()> onChange;
    ValueScales scales;
    Readout readout;
    QCPItemText* note;
    QTimer frame;
    Mode mode = Mode::kFollow;
    bool paused = false, byCount = false, oneScaleEach = false;
    bool fitsValues = true;      // each frame puts the values into sight
    uint64_t pausedRows = 0;     // rows there were when it was paused
    double span[2];              // of time in seconds, of lines, when it follows
    std::vector<bool> shown;     // by series
    std::vector<size_t> counts;  // of the points of each series, those that are looked at
    QPoint dragged;              // where the mouse was
    bool isDragging = false;
    int climbed = 0;  // pixels that a drag went up or down, while values are fitted
};
