// Lines as series, their ring and its thinning, and the files that they are kept in.
#include <gtest/gtest.h>

#include <QBuffer>
#include <algorithm>
#include <random>
#include <sstream>

#include "plotter/CsvText.h"
#include "plotter/RunningLog.h"
#include "plotter/Thinning.h"
#include "tests/support/ScratchFolder.h"

namespace {

// What is saved when these lines came, one a millisecond, behind those before them.
std::string Csv(Recording& recording, const std::string& lines) {
    std::istringstream stream(lines);
    double time = 0;
    for (std::string line; std::getline(stream, line); time += 0.001)
        recording.TakeLine(line, time);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(WriteCsv(recording, buffer));
    return buffer.data().toStdString();
}

std::string CsvOf(const std::string& lines, bool recordedRun = false) {
    Recording recording;
    recording.Restart(recordedRun);
    return Csv(recording, lines);
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
    const auto counts = [&recording] {
        return recording.LinesRead() * 100 + recording.LinesSkipped() * 10 +
               recording.LinesPlotted();
    };
    Csv(recording, "Hello\na,b\n1,2\nwords\n3,x\nn=1\n\n");
    EXPECT_EQ(counts(), 742u);
    recording.Forget();
    EXPECT_EQ(Csv(recording, "more\n1,2\n"), "time,a,b,n\n0.001,1,2,\n");
    EXPECT_EQ(counts(), 211u);
    std::string many = "1";
    for (int i = 0; i < 100; ++i) many += ",1";
    Csv(recording, many + "\nx=1 n=2\n");
    EXPECT_TRUE(recording.HadTooManySeries());
    EXPECT_EQ(recording.All().size(), kMostSeries);
    EXPECT_EQ(recording.All()[2].points.Size(), 1u);  // "n" was there before
}

TEST(Recording, ALogThatWasBrokenOff) {
    const ScratchFolder scratch;
    std::string contents;
    for (const QString lines : {"a=1", "a=2|b=3"}) {
        Recording recording;
        RunningLog log;
        ASSERT_TRUE(log.Begin("log.csv"));
        for (const QString& line : lines.split('|')) {
            recording.TakeLine(line.toStdString(), 1);
            log.AddRow(recording);
        }
        EXPECT_TRUE(log.Flush());
        contents = ScratchFolder::Get("log.csv").toStdString();
        EXPECT_EQ(contents.back(), '\n');
        contents.pop_back();
        ScratchFolder::Put("log.csv", contents.c_str());  // its end is lost
    }
    EXPECT_EQ(contents, "time,a\n1,1\ntime,a\n1,2\ntime,a,b\n1,,3");
    EXPECT_EQ(CsvOf(contents, true), "time,a,b\n1,1,\n1,2,\n1,,3\n");
    EXPECT_FALSE(RunningLog().Begin("/"));
}

using Points = std::vector<std::pair<double, double>>;

// Each column by a look at all points, and the one to the left of the span.
Points Thinned(const Points& all, const PlotSpan& span) {
    Points shown;
    const auto column = [&span](double x) {
        return x > span.to ? -1
                           : std::floor((x - span.from) / (span.to - span.from) * span.columns);
    };
    auto i = std::lower_bound(all.begin(), all.end(), std::pair(span.from, -1e9));
    if (i != all.begin()) shown.push_back(i[-1]);
    while (i != all.end() && i->first <= span.to) {
        auto end = i;
        double low = i->second, high = low;
        for (; end != all.end() && column(end->first) == column(i->first); ++end) {
            low = std::min(low, end->second);
            high = std::max(high, end->second);
        }
        shown.push_back(*i);
        if (end - i > 2) shown.insert(shown.end(), {{i->first, low}, {i->first, high}});
        if (end - i > 1) shown.push_back(end[-1]);
        i = end;
    }
    return shown;
}

TEST(Thinning, ShowsWhatAllPointsWould) {
    std::mt19937 random(7);
    const auto number = [&random](int most) { return static_cast<int>(random() % unsigned(most)); };
    for (int round = 0; round < 60; ++round) {
        PointRing ring;
        RowTimes rows;
        Points byTime, byCount;
        double time = 0;
        const int lines = number(3000);
        for (int i = 0; i < lines; ++i) {
            const uint32_t row = rows.Add(time += number(4) * 0.25);
            if (number(4) == 0) continue;
            const double value = number(1000) - 500;
            ring.Add(row, value);
            byTime.emplace_back(time, value);
            byCount.emplace_back(i + 1, value);
        }
        const double from = number(2000) - 200;
        const PlotSpan span = {from, from + 1 + number(1500), 1 + number(300)};
        for (const bool count : {false, true}) {
            Points within;
            for (const auto& [x, y] : Thin(ring, {&rows, count}, span, ring.Size()).points)
                if (x <= span.to) within.emplace_back(x, y);
            EXPECT_EQ(within, Thinned(count ? byCount : byTime, span));
        }
    }
}

TEST(Recording, KeepsTheNewestPointsOfEachSeries) {
    constexpr int kMost = 1000;  // no whole number of blocks
    Recording recording(kMost), alone(kMost);
    for (int i = 0; i < 12345; ++i) {
        const std::string often = "often=" + std::to_string(i);
        recording.TakeLine(i % 100 == 50 ? often + " seldom=1" : often, i);
        alone.TakeLine("1", i);
        const PointRing& ring = recording.All()[0].points;
        const XAxisRule time = {&recording.Rows(), false}, count = {&recording.Rows(), true};
        const int oldest = std::max(0, i + 1 - kMost);
        ASSERT_EQ(ring.Size(), static_cast<size_t>(i - oldest + 1));
        ASSERT_EQ((Points{{time(ring.Row(0)), ring.Value(0)},
                          {count(ring.Row(0)), ring.Value(ring.Size() - 1)}}),
                  (Points{{oldest, oldest}, {oldest + 1, i}}));
        if (i % 1000 > 0) continue;
        const ThinSeries all = Thin(ring, time, {-1, 2e4, 1}, ring.Size());
        EXPECT_EQ(Points({{all.lowest, all.highest}}), Points({{oldest, i}}));
    }
    const PointRing& seldom = recording.All()[1].points;
    EXPECT_EQ(recording.Rows().Time(seldom.Row(0)), 50);  // its rows are kept
    EXPECT_EQ(alone.Rows().Size(), size_t(kMost));        // and nobody's are not
}

}  // namespace
