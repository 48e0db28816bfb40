// What was received, as series.
#pragma once

#include <string>
#include <vector>

#include "plotter/PlotLine.h"
#include "plotter/PointRing.h"
#include "plotter/RowTimes.h"

constexpr size_t kMostSeries = 32;

struct Series {
    std::string name;  // UTF-8, different from all others
    PointRing points;
};

class Recording {
  public:
    // Keeps so many points of each series.
    explicit Recording(size_t points = kRingPoints) : ringPoints(points) {}

    // Forgets everything. In a recorded run a first column called "time" holds the times, in
    // seconds.
    void Restart(bool isRecordedRun);
    // Forgets what was received, and not the names.
    void Forget();
    // One line, whole and clean, or an empty one for a line that was dropped; `time` in seconds.
    // True when it gave a point.
    bool TakeLine(const std::string& line, double time);

    const std::vector<Series>& All() const { return series; }
    const RowTimes& Rows() const { return rows; }
    bool HasTimeColumn() const { return timeColumn; }
    uint64_t LinesRead() const { return linesRead; }
    uint64_t LinesSkipped() const { return linesRead - linesUsed; }
    uint64_t LinesPlotted() const { return linesPlotted; }
    bool HadTooManySeries() const { return tooMany; }

  private:
    void HoldNames(const std::vector<std::string>& names);
    void NameColumns(size_t count, size_t used);
    bool TakeNumbers(std::vector<double> values, double time);
    bool AddRow(const std::vector<size_t>& places, const std::vector<double>& values, double time);
    size_t PlaceOf(const std::string& name);
    double TimeIn(double value);
    void DropOldRows();

    size_t ringPoints;
    bool recordedRun = false;
    bool timeColumn = false;
    bool tooMany = false;
    std::vector<Series> series;
    RowTimes rows;
    std::vector<size_t> columns;         // the series of each column; kMostSeries for none
    std::vector<std::string> heldNames;  // from a line of words, for the columns behind it
    double timeShift = 0;                // from the time column to the recording's
    uint64_t linesRead = 0, linesUsed = 0, linesPlotted = 0;
};
