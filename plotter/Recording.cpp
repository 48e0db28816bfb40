#include "plotter/Recording.h"

#include <QString>
#include <algorithm>
#include <cmath>

namespace {

bool IsTime(const std::string& name) {
    return QString::fromStdString(name).compare("time", Qt::CaseInsensitive) == 0;
}

std::string NameOfColumn(size_t column) {
    return "Column " + std::to_string(column + 1);
}

}  // namespace

void Recording::Restart(bool isRecordedRun) {
    *this = Recording(ringPoints);
    recordedRun = isRecordedRun;
}

void Recording::Forget() {
    for (Series& each : series) each.points = PointRing(ringPoints);
    rows = RowTimes();
    timeShift = 0;
    linesRead = linesUsed = linesPlotted = 0;
}

bool Recording::TakeLine(const std::string& text, double time) {
    const PlotLine line = ReadPlotLine(text);
    ++linesRead;
    bool plotted = false;
    if (line.kind == LineKind::kNumbers) {
        plotted = TakeNumbers(line.values, time);
    } else if (line.kind == LineKind::kNamed) {
        std::vector<size_t> places;
        for (const std::string& name : line.names) places.push_back(PlaceOf(name));
        plotted = AddRow(places, line.values, time);
    } else if (line.kind == LineKind::kWords) {
        HoldNames(line.names);
    }
    linesUsed += plotted;
    linesPlotted += plotted;
    return plotted;
}

// The last line of words before the first numbers counts. A running log that went on has another
// one, which begins with the time again.
void Recording::HoldNames(const std::vector<std::string>& names) {
    if (columns.empty() || (timeColumn && IsTime(names[0]))) heldNames = names;
}

// The columns of a line of numbers, of which the last `used` has a value. A second column of a name
// is another series.
void Recording::NameColumns(size_t count, size_t used) {
    const std::vector<std::string> names = std::move(heldNames);
    heldNames.clear();
    const bool isNamed = names.size() == count || names.size() == used;
    if (isNamed) {
        ++linesUsed;
        timeColumn = recordedRun && IsTime(names[0]);
        columns.assign(timeColumn ? 1 : 0, kMostSeries);
    }
    for (size_t next = columns.size(); next < (isNamed ? names.size() : used); ++next) {
        const bool isNew = isNamed && std::find(names.begin(), names.end(), names[next]) ==
                                          names.begin() + static_cast<std::ptrdiff_t>(next);
        columns.push_back(PlaceOf(isNew ? names[next] : NameOfColumn(next)));
    }
}

bool Recording::TakeNumbers(std::vector<double> values, double time) {
    const size_t count = values.size();
    while (std::isnan(values.back())) values.pop_back();
    if (columns.size() < values.size() || !heldNames.empty()) NameColumns(count, values.size());
    return AddRow(columns, values, timeColumn ? TimeIn(values[0]) : time);
}

// The time goes on where a run was appended to another.
double Recording::TimeIn(double value) {
    if (std::isnan(value)) return rows.Newest();
    if (rows.Size() > 0 && value + timeShift < rows.Newest()) timeShift = rows.Newest() - value;
    return value + timeShift;
}

bool Recording::AddRow(const std::vector<size_t>& places, const std::vector<double>& values,
                       double time) {
    bool any = false;
    uint32_t row = 0;
    for (size_t i = 0; i < values.size(); ++i) {
        if (places[i] == kMostSeries || std::isnan(values[i])) continue;
        if (!any) row = rows.Add(time);
        any = true;
        PointRing& points = series[places[i]].points;
        const size_t size = points.Size();
        if (size == 0 || points.Row(size - 1) != row) points.Add(row, values[i]);
    }
    if (rows.Size() > ringPoints) DropOldRows();
    return any;
}

size_t Recording::PlaceOf(const std::string& name) {
    const auto found = std::find_if(series.begin(), series.end(),
                                    [&name](const Series& each) { return each.name == name; });
    const auto place = static_cast<size_t>(found - series.begin());
    if (found != series.end()) return place;
    if (place < kMostSeries) {
        series.push_back({name, PointRing(ringPoints)});
    } else {
        tooMany = true;
    }
    return place;
}

// Those that no series has a point of.
void Recording::DropOldRows() {
    uint32_t most = 0;  // rows from the oldest one that is needed to the newest
    const uint32_t newest = rows.NewestRow();
    for (const Series& each : series) {
        if (each.points.Size() > 0) most = std::max(most, newest - each.points.Row(0));
    }
    rows.DropBefore(newest - most);
}
