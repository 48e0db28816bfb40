// Whatever a board prints, in pieces of any size: lines, series, and the CSV of them, which
// gives the same again when it is read.
#include <QBuffer>
#include <algorithm>

#include "plotter/CsvText.h"
#include "plotter/LineCutter.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Recording recording, again;
    if (size > 0) recording.Restart(data[0] & 1);
    LineCutter cutter;
    const auto csvOf = [](const Recording& received) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (!WriteCsv(received, buffer)) abort();
        return buffer.data();
    };
    const auto take = [](Recording& into) {
        return [&into](const std::string& line) {
            if (line.size() > kLongestLine) abort();
            into.TakeLine(line, static_cast<double>(into.LinesRead()));
        };
    };
    for (size_t at = 1; at < size;) {
        const size_t piece = std::min<size_t>(1 + data[at] % 64, size - at);
        cutter.Feed(reinterpret_cast<const char*>(data + at), piece, take(recording));
        at += piece;
    }
    cutter.Finish(take(recording));
    const QByteArray csv = csvOf(recording);
    again.Restart(true);
    cutter.Feed(csv.constData(), static_cast<size_t>(csv.size()), take(again));
    // A series called "time" has another name when it is read.
    const QByteArray second = csvOf(again);
    const bool same = second.mid(second.indexOf('\n')) == csv.mid(csv.indexOf('\n'));
    if (recording.LinesPlotted() > 0 && !same) abort();
    return 0;
}
