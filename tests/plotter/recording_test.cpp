// Lines as series, their ring and its thinning, and the files that they are kept in.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QTemporaryDir>
#include <algorithm>
#include <random>
#include <sstream>

#include "plotter/CsvText.h"
#include "plotter/LineCutter.h"
#include "plotter/RunningLog.h"
#include "plotter/Thinning.h"

namespace {

std::string Csv(const Recording& recording) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(WriteCsv(recording, buffer));
    return buffer.data().toStdString();
}

void Take(Recording& recording, const std::string& lines, double time = 0) {
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line); time += 0.001)
        recording.TakeLine(line, time);
}

std::string CsvOf(const std::string& lines, bool recordedRun = false) {
    Recording recording;
    recording.Restart(recordedRun);
    Take(recording, lines);
    return Csv(recording);
}

TEST(Recording, NamesOfColumns) {
    EXPECT_EQ(CsvOf("Hello\n> RUN\na,\"b;1\"\n1,2\n3,4,5\nc,d\n6\n"),
              "time,a,\"b;1\",Column 3\n0.003,1,2,\n0.004,3,4,5\n0.006,6,,\n");
    EXPECT_EQ(CsvOf("a,b,c\n1,2\n"), "time,Column 1,Column 2\n0.001,1,2\n");
    EXPECT_EQ(CsvOf("x,x\n1,2\n"), "time,x,Column 2\n0.001,1,2\n");
    EXPECT_EQ(CsvOf("a,b\n1,2,\n"), "time,a,b\n0.001,1,2\n");  // a separator too much
    EXPECT_EQ(CsvOf("a=1 b: 2\nb=3\na=4 a=5\n"), "time,a,b\n0,1,2\n0.001,,3\n0.002,4,\n");
    EXPECT_EQ(CsvOf("time,a\n7,1\n"), "time,time,a\n0.001,7,1\n");  // the board's own, live
}

TEST(Recording, ReadsAgainWhatItSaved) {
    const std::string run = CsvOf("p,\"q \"\"r\"\", s\"\n0.1,-1e-300\n123456789.125,\nv=1\n,2\n");
    EXPECT_EQ(CsvOf(run, true), run);
    EXPECT_EQ(CsvOf("Time;a\n-5;1\n;2\n-4.5;3\n", true), "time,a\n-5,1\n-5,2\n-4.5,3\n");
    // Behind another run the time goes on, and there may be more names.
    EXPECT_EQ(CsvOf("time,a\n0,1\n8,2\ntime,b,a\n1,3,4\n2,5,6\n", true),
              "time,a,b\n0,1,\n8,2,\n8,4,3\n9,6,5\n");
}

TEST(Recording, CountsAndBounds) {
    Recording recording;
    Take(recording, "Hello\na,b\n1,2\nwords\n3,x\nn=1\n\n");
    EXPECT_EQ(recording.LinesRead(), 7u);
    EXPECT_EQ(recording.LinesSkipped(), 4u);
    EXPECT_EQ(recording.LinesPlotted(), 2u);
    recording.Forget();
    Take(recording, "more\n1,2\n");
    EXPECT_EQ(recording.LinesSkipped(), 1u);
    EXPECT_EQ(Csv(recording), "time,a,b,n\n0.001,1,2,\n");
    std::string many = "1";
    for (int i = 0; i < 100; ++i) many += ",1";
    Take(recording, many + "\nx=1 n=2\n");
    EXPECT_TRUE(recording.HadTooManySeries());
    EXPECT_EQ(recording.All().size(), kMostSeries);
    EXPECT_EQ(recording.All()[2].points.Size(), 1u);  // "n" was there before
}

TEST(Recording, ALogThatWasBrokenOff) {
    QTemporaryDir folder;
    const QString path = folder.filePath("log.csv");
    const auto contents = [&path] {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    };
    for (const char* lines : {"a=1\n", "a=2\nb=3\n"}) {
        Recording recording;
        RunningLog log;
        ASSERT_TRUE(log.Begin(path));
        std::istringstream stream(lines);
        for (std::string line; std::getline(stream, line);) {
            recording.TakeLine(line, 1);
            log.AddRow(recording);
        }
        EXPECT_TRUE(log.Flush());
        const std::string flushed = contents();
        EXPECT_EQ(flushed.back(), '\n');
        QFile::resize(path, static_cast<qint64>(flushed.size()) - 1);  // its end is lost
    }
    EXPECT_EQ(contents(), "time,a\n1,1\ntime,a\n1,2\ntime,a,b\n1,,3");
    EXPECT_EQ(CsvOf(contents(), true), "time,a,b\n1,1,\n1,2,\n1,,3\n");
    RunningLog log;
    EXPECT_FALSE(log.Begin(folder.path()));
}

struct Plain {
    std::vector<double> x, y;
};

// Each column by a look at all points.
void ExpectThinned(const Plain& all, const ThinSeries& thin, const PlotSpan& span) {
    size_t at = 0;
    const auto next = [&](double x, double y) {
        ASSERT_LT(at, thin.points.size());
        EXPECT_EQ(thin.points[at].x, x);
        EXPECT_EQ(thin.points[at++].y, y);
    };
    const auto begin = static_cast<size_t>(std::lower_bound(all.x.begin(), all.x.end(), span.from) -
                                           all.x.begin());
    if (begin > 0) next(all.x[begin - 1], all.y[begin - 1]);
    for (size_t i = begin; i < all.x.size() && all.x[i] <= span.to;) {
        const auto column = [&](size_t point) {
            return std::floor((all.x[point] - span.from) / (span.to - span.from) * span.columns);
        };
        size_t end = i;
        while (end < all.x.size() && all.x[end] <= span.to && column(end) == column(i)) ++end;
        const auto [low, high] = std::minmax_element(&all.y[i], all.y.data() + end);
        next(all.x[i], all.y[i]);
        if (end - i > 2) next(all.x[i], *low);
        if (end - i > 2) next(all.x[i], *high);
        if (end - i > 1) next(all.x[end - 1], all.y[end - 1]);
        i = end;
    }
    for (; at < thin.points.size(); ++at) EXPECT_GT(thin.points[at].x, span.to);
}

TEST(Thinning, ShowsWhatAllPointsWould) {
    std::mt19937 random(7);
    const auto number = [&random](int most) { return static_cast<int>(random() % unsigned(most)); };
    for (int round = 0; round < 60; ++round) {
        PointRing ring;
        RowTimes rows;
        Plain byTime, byCount;
        double time = 0;
        const int lines = number(3000);
        for (int i = 0; i < lines; ++i) {
            const uint32_t row = rows.Add(time += number(4) * 0.25);
            if (number(4) == 0) continue;
            const double value = number(1000) - 500;
            ring.Add(row, value);
            byTime.x.push_back(time);
            byCount.x.push_back(i + 1);
            byTime.y.push_back(value);
            byCount.y.push_back(value);
        }
        const double from = number(2000) - 200;
        const PlotSpan span = {from, from + 1 + number(1500), 1 + number(300)};
        ExpectThinned(byTime, Thin(ring, {&rows, false}, span, ring.Size()), span);
        ExpectThinned(byCount, Thin(ring, {&rows, true}, span, ring.Size()), span);
    }
}

TEST(Recording, KeepsTheNewestPointsOfEachSeries) {
    constexpr size_t kMost = 1000;  // no whole number of blocks
    Recording recording(kMost);
    for (int i = 0; i < 12345; ++i) {
        const std::string often = "often=" + std::to_string(i);
        recording.TakeLine(i % 100 == 50 ? often + " seldom=1" : often, i);
        const PointRing& ring = recording.All()[0].points;
        const XAxisRule time = {&recording.Rows(), false}, count = {&recording.Rows(), true};
        const int oldest = std::max(0, i + 1 - static_cast<int>(kMost));
        ASSERT_EQ(ring.Size(), static_cast<size_t>(i - oldest + 1));
        ASSERT_EQ(ring.Value(0), oldest);
        ASSERT_EQ(ring.Value(ring.Size() - 1), i);
        ASSERT_EQ(time(ring.Row(0)), oldest);
        ASSERT_EQ(count(ring.Row(0)), oldest + 1);
        if (i % 1000 == 0) {
            const ThinSeries all = Thin(ring, time, {-1, 2e4, 1}, ring.Size());
            EXPECT_EQ(all.lowest, oldest);
            EXPECT_EQ(all.highest, i);
        }
    }
    const PointRing& seldom = recording.All()[1].points;
    EXPECT_EQ(recording.Rows().Time(seldom.Row(0)), 50);  // its rows are kept
    Recording alone(kMost);
    for (int i = 0; i < 12345; ++i) alone.TakeLine("1", i);
    EXPECT_EQ(alone.Rows().Size(), kMost);  // and nobody's are not
}

}  // namespace
