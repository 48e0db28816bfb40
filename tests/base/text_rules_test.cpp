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
    EXPECT_EQ(FieldOf("a|b||d", 5, '|'), "");
    EXPECT_EQ(FieldOf("a|b", 0, '|'), "");
}

TEST(TextRules, TrimsBlanksAloneOrWithTabs) {
    EXPECT_EQ(TrimBlanks("  \ta b\t  "), "\ta b\t");
    EXPECT_EQ(TrimBlanksAndTabs(" \ta b\t "), "a b");
    EXPECT_EQ(TrimBlanks("   "), "");
}

TEST(LineEnding, AnUnknownNameKeepsCrLf) {
    SetLineEnding("lf");
    EXPECT_EQ(lineEnding.name + lineEnding.bytes, "lf\r\n");
}

}  // namespace
