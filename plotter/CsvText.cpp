#include "plotter/CsvText.h"

#include <charconv>

namespace {

constexpr size_t kPiece = 64 * 1024;  // bytes that are written in one go

void AppendNumber(std::string& text, double value) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    text.append(digits, end);
}

std::string Quoted(const std::string& name) {
    if (name.find_first_of(",;\t\"") == std::string::npos) return name;
    std::string quoted = "\"";
    for (char c : name) quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

// `places` tells for each series the point that is looked at, and moves on from those of the row.
void AppendRow(std::string& text, const Recording& recording, uint32_t row,
               std::vector<size_t>& places) {
    AppendNumber(text, recording.Rows().Time(row));
    for (size_t i = 0; i < places.size(); ++i) {
        const PointRing& points = recording.All()[i].points;
        text += ',';
        if (places[i] >= points.Size() || points.Row(places[i]) != row) continue;
        AppendNumber(text, points.Value(places[i]++));
    }
    text += '\n';
}

}  // namespace

std::string CsvHeader(const Recording& recording) {
    std::string text = "time";
    for (const Series& series : recording.All()) text += ',' + Quoted(series.name);
    return text + '\n';
}

std::string CsvNewestRow(const Recording& recording) {
    std::vector<size_t> places;
    for (const Series& series : recording.All()) places.push_back(series.points.Size() - 1);
    std::string text;
    AppendRow(text, recording, recording.Rows().NewestRow(), places);
    return text;
}

bool WriteCsv(const Recording& recording, QIODevice& device) {
    const auto write = [&device](const std::string& text) {
        const auto size = static_cast<qint64>(text.size());
        return device.write(text.data(), size) == size;
    };
    std::string text = CsvHeader(recording);
    std::vector<size_t> places(recording.All().size());
    const RowTimes& rows = recording.Rows();
    for (size_t i = rows.Size(); i > 0; --i) {
        AppendRow(text, recording, rows.NewestRow() - static_cast<uint32_t>(i - 1), places);
        if (text.size() < kPiece) continue;
        if (!write(text)) return false;
        text.clear();
    }
    return write(text);
}
