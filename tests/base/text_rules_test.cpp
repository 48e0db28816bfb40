#include "base/TextRules.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/LineEnding.h"

namespace {

TEST(TextRules, IntegersFollowStrtolAndTheDollarPrefix) {
    // clang-format off
    const struct {
        const char* text;
        int64_t value;
    } rows[] = {
        {"", 0}, {"x12", 0}, {"12x", 12}, {"  -7 ", -7}, {"$FF", 255}, {" $0000CD", 205}, {"$", 0},
        {"$zz", 0}, {"99999999999999999999", std::numeric_limits<int64_t>::max()},
        {"-99999999999999999999", std::numeric_limits<int64_t>::min()}, {"12.9", 12}, {"+5", 5},
    };
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(TextToInteger(row.text), row.value) << row.text;
    EXPECT_EQ(TextToInteger32("4294967297"), 1);
    EXPECT_EQ(TextToInteger(QString(1000000, '9')), std::numeric_limits<int64_t>::max());
}

TEST(TextRules, FieldsCountFromOneAndEndInEmptyText) {
    EXPECT_EQ(FieldOf("a|b||d", 2, '|'), "b");
    EXPECT_EQ(FieldOf("a|b||d", 3, '|'), "");
    EXPECT_EQ(FieldOf("a|b||d", 4, '|'), "d");
    EXPECT_EQ(FieldOf("a|b||d", 5, '|'), "");
    EXPECT_EQ(FieldOf("a|b", 0, '|'), "");
    EXPECT_EQ(FieldOf("alone", 1, '|'), "alone");
}

TEST(TextRules, TrimsBlanksAloneOrWithTabs) {
    EXPECT_EQ(TrimBlanks("  \ta b\t  "), "\ta b\t");
    EXPECT_EQ(TrimBlanksAndTabs(" \ta b\t "), "a b");
    EXPECT_EQ(TrimBlanks("   "), "");
}

TEST(TextRules, PathsFallIntoFolderNameAndExtension) {
    EXPECT_EQ(FolderPart("/a b/c.d/prog.v2.BAS"), "/a b/c.d/");
    EXPECT_EQ(NamePart("/a b/c.d/prog.v2.BAS"), "prog.v2.BAS");
    EXPECT_EQ(ExtensionPart("/a b/c.d/prog.v2.BAS"), "BAS");
    EXPECT_EQ(ExtensionPart("/a.b/noext"), "");
    EXPECT_EQ(FolderPart("plain"), "");
    EXPECT_EQ(NamePart("/folder/"), "");
}

TEST(TextRules, DatesAndColoursKeepTheirWidth) {
    constexpr int64_t kMoment = 1662008523;  // 2022-09-01 05:02:03
    EXPECT_EQ(FormatDate("%dd/%mm/%yyyy", kMoment), "01/09/2022");
    EXPECT_EQ(FormatDate("%yy,%mm,%dd,%hh,%ii,%ss", kMoment), "22,09,01,05,02,03");
    EXPECT_EQ(FormatColour(0), "$000000");
    EXPECT_EQ(FormatColour(0xCD), "$0000CD");
    EXPECT_EQ(FormatColour(0x1ABCDEF), "$ABCDEF");
}

TEST(LineEnding, AnUnknownNameKeepsCrLf) {
    SetLineEnding("CR");
    EXPECT_EQ(lineEnding.bytes, "\r");
    SetLineEnding("LF");
    EXPECT_EQ(lineEnding.bytes, "\n");
    SetLineEnding("lf");
    EXPECT_EQ(lineEnding.bytes, "\r\n");
    EXPECT_EQ(lineEnding.name, "lf");
}

}  // namespace
