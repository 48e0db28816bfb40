#include "upload/SourcePreparation.h"

#include <gtest/gtest.h>

#include <chrono>

#include "base/LineEnding.h"

namespace {

struct TextPair {
    const char *given, *expected;
};

// clang-format off
const TextPair normalised[] = {
    {"a\r\nb\rc\nd", "a\nb\nc\nd"}, {"\n\r", "\n\n"}, {"\r\r", "\n\n"}, {"\r\r\n", "\n\n"}, {"", ""},
};
const TextPair unmarked[] = {
    {"'KWEDIT!!! x\n 'kwedit!!!\nPRINT\n'KWEDIT!!!\n", "PRINT\n'KWEDIT!!!\n"},
    {"'KWEDIT!!!", "'KWEDIT!!!"}, {"'KWEDIT!!\nA", "'KWEDIT!!\nA"}, {"'KWEDIT!!!\n", ""},
};
// "~" is the line ending.
const TextPair crunched[] = {
    {"PRINT \"it's\" ' note", "PRINT \"it's\"~"}, {"PRINT \"a\" 'b\"c", "PRINT \"a\"~"},
    {"A$ = \"x  y\"   :  B=1", "A$ = \"x  y\" : B=1~"}, {"REM  x", "REM x~"}, {"A\t 'x", "A\t~"},
    {"  'echo   two  blanks", "'echo   two  blanks~"}, {"'ONLOAD  x  'y", "'ONLOAD  x  'y~"},
    {"PRINT \"open 'not  cut", "PRINT \"open 'not  cut~"}, {"\tA  =  1", "\tA = 1~"},
    {"   'comment", ""}, {"", ""}, {"   ", ""}, {"' onload x", ""}, {"'nap 3", ""},
    {"'target s\\cmm2", ""}, {"'reconnect 2", ""}, {"A\r\n\r\n 'x\nB", "A~B~"},
};
// clang-format on

TEST(SourcePreparation, ShapesTextByItsRules) {
    for (const TextPair& row : normalised) EXPECT_EQ(NormaliseLineEndings(row.given), row.expected);
    for (const TextPair& row : unmarked) EXPECT_EQ(StripMarkerLines(row.given), row.expected);
    for (const char* name : {"CRLF", "CR", "LF"}) {
        SetLineEnding(name);
        for (const TextPair& row : crunched) {
            const QString expected = QString(row.expected).replace('~', lineEnding.bytes);
            EXPECT_EQ(CrunchSource(row.given), expected) << row.given;
        }
    }
}

// Cutting each line off the front would take minutes here.
TEST(SourcePreparation, TakesTimeInProportionToTheText) {
    const int lines = 400'000;
    const auto start = std::chrono::steady_clock::now();
    const QString normal = NormaliseLineEndings(QString("'KWEDIT!!!\r\n").repeated(lines));
    EXPECT_EQ(normal.size(), lines * 11);
    EXPECT_EQ(StripMarkerLines(normal), "");
    EXPECT_EQ(CrunchSource(QString("A  B 'c\n").repeated(lines)).size(), lines * 5);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

}  // namespace
