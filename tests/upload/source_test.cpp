// How a source is read, and what it is before it goes out.
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

// clang-format off
// "~" is the line ending.
const char* const crunched[][2] = {
    {"PRINT \"it's\" ' note", "PRINT \"it's\"~"}, {"PRINT \"a\" 'b\"c", "PRINT \"a\"~"},
    {"A$ = \"x  y\"   :  B=1", "A$ = \"x  y\" : B=1~"}, {"REM  x", "REM x~"}, {"A\t 'x", "A\t~"},
    {"  'echo   two  blanks", "'echo   two  blanks~"}, {"'ONLOAD  x  'y", "'ONLOAD  x  'y~"},
    {"PRINT \"open 'not  cut", "PRINT \"open 'not  cut~"}, {"\tA  =  1", "\tA = 1~"},
    {"   'comment", ""}, {"", ""}, {"   ", ""}, {"' onload x", ""}, {"'nap 3", ""},
    {"'target s\\cmm2", ""}, {"\nA\r\n\r\n 'x\nB", "A~B~"},
};
// clang-format on

TEST(SourcePreparation, ShapesTextByItsRules) {
    EXPECT_EQ(NormaliseLineEndings("a\r\nb\rc\nd\r\r\n"), "a\nb\nc\nd\n\n");
    const QString kept = "PRINT\n'KWEDIT!!!\n";
    EXPECT_EQ(StripMarkerLines("'KWEDIT!!! x\n 'kwedit!!!\n" + kept), kept);
    for (const char* text : {"'KWEDIT!!!", "'KWEDIT!!\nA"}) EXPECT_EQ(StripMarkerLines(text), text);
    for (const auto& [given, expected] : crunched)
        EXPECT_EQ(CrunchSource(given).replace("\r\n", "~"), expected) << given;
}

}  // namespace
