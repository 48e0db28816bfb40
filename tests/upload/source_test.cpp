#include "tests/upload/upload_bench.h"
#include "upload/SourceFile.h"
#include "upload/SourcePreparation.h"

namespace {

using SourceFile = UploadBench;

TEST_F(SourceFile, IsReadByteByByteAndBounded) {
    const ScratchFolder folder;
    QByteArray all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    SetPasteSource(true);
    const QString text = ReadSourceFile(ScratchFolder::Put("all.bas", all));
    EXPECT_TRUE(text.size() == 256 && text.toLatin1() == all && !uploadSource.pasteSource);
    EXPECT_EQ(ReadSourceFile("") + ReadSourceFile("new.bas") + Printed(), "");
    ASSERT_EQ(truncate("new.bas", kLargestSource), 0);  // and so created
    EXPECT_EQ(ReadSourceFile("new.bas").size(), kLargestSource);
    ASSERT_EQ(truncate("new.bas", kLargestSource + 1LL), 0);
    EXPECT_EQ(ReadSourceFile(QString("new.bas") + QChar(0)), "");
    EXPECT_EQ(Printed(1), "File read failed!!");
    LoadPath("new.bas");
    EXPECT_EQ(Printed(2), "File is larger than 64 MB and is not uploaded.|Nothing to load.");
    // A family whose end code runs the program gets another code; the next load runs it again.
    ScratchFolder::Put("p.bas", "'target s\\cmm2\n");
    for (const auto& load : {StorePath, LoadPath}) {
        load("p.bas");
        EXPECT_EQ(Received().right(5), load == StorePath ? "\x1b[11~" : "\x1b[12~");
    }
}

using TextPair = const char* const[2];

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
    {"'target s\\cmm2", ""}, {"\nA\r\n\r\n 'x\nB", "A~B~"},
};
// clang-format on

TEST(SourcePreparation, ShapesTextByItsRules) {
    for (const auto& [given, expected] : normalised)
        EXPECT_EQ(NormaliseLineEndings(given), expected);
    for (const auto& [given, expected] : unmarked) EXPECT_EQ(StripMarkerLines(given), expected);
    for (const auto& [given, expected] : crunched)
        EXPECT_EQ(CrunchSource(given).replace("\r\n", "~"), expected) << given;
}

}  // namespace
