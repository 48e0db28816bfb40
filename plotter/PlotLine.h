// What a line gives to plot.
#pragma once

#include <string>
#include <string_view>
#include <vector>

constexpr size_t kLongestName = 64;  // bytes

enum class LineKind {
    kOther,
    kNumbers,  // values by column
    kNamed,    // values, each with its name
    kWords,    // names, which may be those of columns
};

struct PlotLine {
    LineKind kind = LineKind::kOther;
    std::vector<std::string> names;  // UTF-8
    std::vector<double> values;      // NaN where a column has none
};

// Looks at one line by itself. Numbers are parted by commas, semicolons, TABs or blanks; between
// two of the first three nothing, "nan" or "inf" stand for a missing value. A value with a name is
// written name=value or name: value. Words are parted by commas, semicolons or TABs, or by blanks
// where there is none of those, and may stand in double quotes.
PlotLine ReadPlotLine(std::string_view line);
