// From bytes to lines, and what each form of a line gives.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "plotter/LineCutter.h"
#include "plotter/PlotLine.h"

namespace {

// "1 - 2" numbers with one missing, "a=1" a named one, "[a][b]" words, "" anything else.
std::string Shown(const PlotLine& line) {
    std::ostringstream text;
    text.precision(17);
    for (size_t i = 0; line.kind == LineKind::kWords && i < line.names.size(); ++i)
        text << '[' << line.names[i] << ']';
    for (size_t i = 0; i < line.values.size(); ++i) {
        text << (i > 0 ? " " : "") << (line.kind == LineKind::kNamed ? line.names[i] + "=" : "");
        std::isnan(line.values[i]) ? text << '-' : text << line.values[i];
    }
    return text.str();
}

TEST(PlotLine, Forms) {
    const std::pair<const char*, const char*> forms[] = {
        {"1,2;3\t4 5", "1 2 3 4 5"},
        {" 1     -2.5 , +3e2 ;.5\t 1E-3,-7.E+1 ", "1 -2.5 300 0.5 0.001 -70"},
        {"1,,2, ,3,", "1 - 2 - 3 -"},
        {"nan, 4,-INF", "- 4 -"},
        {"nan", "[nan]"},
        {"temp=21.5", "temp=21.5"},
        {"temp: 21.5, hum: 40;p= -3\tq:+1 Room 2 temp :7",
         "temp=21.5 hum=40 p=-3 q=1 Room 2 temp=7"},
        {"T\xc3\xa9=nan _x=2", "T\xc3\xa9=- _x=2"},
        {"a=1,b", "[a=1][b]"},
        {"a=", "[a=]"},
        {"time,Temp in C,\"a, \"\"b\"\"\",", "[time][Temp in C][a, \"b\"]"},
        {" wave  drift ", "[wave][drift]"},
    };
    for (const auto& [line, shown] : forms) EXPECT_EQ(Shown(ReadPlotLine(line)), shown) << line;
    for (const char* other : {",", "1,2 volt", "1 2x", "0x10", "+-1", "1e999", "12:30:05", "1\3772",
                              "> 42", "T\xe9=1", "a=1 2", "5=1", "one,,three", "\xfe\xfa"})
        EXPECT_EQ(Shown(ReadPlotLine(other)), "") << other;
    const std::string most(kLongestName, 'x');
    EXPECT_EQ(Shown(ReadPlotLine(most + "=1")), most + "=1");
    for (const char* behind : {"=1", " y"}) EXPECT_EQ(Shown(ReadPlotLine('x' + most + behind)), "");
}

// The lines that come out, each behind "|".
std::string Cut(LineCutter& cutter, const std::string& bytes, size_t piece) {
    std::string lines;
    const auto take = [&lines](const std::string& line) { lines += '|' + line; };
    for (size_t at = 0; at < bytes.size(); at += piece)
        cutter.Feed(bytes.data() + at, std::min(piece, bytes.size() - at), take);
    return lines;
}

TEST(LineCutter, LinesInAnyPieces) {
    const std::string longest(kLongestLine, '1');
    const std::pair<const char*, const char*> cases[] = {
        {"1\r\n2\r3\n\n\r\n4", "|1|2|3"},
        {"\x1b[1;31m1\x1b[0m,\x1b[?25l2\x1b(B\n", "|1,2"},
        {"\x1b]0;a title\a3\n\x1bP1$r\x1b\\4\n\x1bM5\n", "|3|4|5"},
        {"\x1b[12\n6\n\x1b]8\n7\n\x1b\n8\n", "|6|7|8"},  // none goes beyond its line
        {"\a9\x7f\x01\n\t0\n", "|9|\t0"},
    };
    for (const auto& [bytes, lines] : cases) {
        for (size_t piece : {1, 2, 3, 1000}) {
            LineCutter cutter;
            EXPECT_EQ(Cut(cutter, bytes, piece), lines) << piece;
        }
    }
    LineCutter cutter;
    EXPECT_EQ(Cut(cutter, longest + "\n", 1000), '|' + longest);
    EXPECT_EQ(Cut(cutter, longest + "1\n2\n" + std::string(1000000, '\x1b') + "\n", 1000), "||2|");
    // What began before it listened.
    Cut(cutter, "12", 9);
    cutter.Restart(true);
    EXPECT_EQ(Cut(cutter, "3\n4\n5", 9), "|4");
    cutter.Restart(false);
    EXPECT_EQ(Cut(cutter, "6\n7", 9), "|6");
    cutter.Finish([](const std::string& line) { EXPECT_EQ(line, "7"); });
}

}  // namespace
