// FILES, LS and LIST: layout, order, paging, broken lines.
#include "tests/simulator/board_bench.h"

namespace {

// 21-06-2025 10:07:30.
constexpr int64_t kStamp = 1750500450;
const std::string kErase = "\r" + std::string(17, ' ') + "\r";
const std::string kAnyKey = "PRESS ANY KEY ...";

size_t Lines(const std::string& text) {
    size_t count = 0;
    for (size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++at) ++count;
    return count;
}

struct FullBench : BoardBench {
    FullBench(const char* family, int count) : BoardBench(family) {
        for (int i = 100; i < 100 + count; ++i)
            board.AddFile("f" + std::to_string(i) + ".bas", "x", kStamp);
    }
};

std::string Program(int lines) {
    std::string text = "AUTOSAVE\r";
    for (int i = 1; i <= lines; ++i) text += "print " + std::to_string(i) + "\r";
    return text + "\x1a";
}

TEST(Listing, FilesOfThePicoMite) {
    BoardBench bench;
    bench.board.AddFile("games/sub/deep.bas", "", kStamp);
    bench.board.AddFile("games/prog.bas", std::string(1234, 'x'), kStamp);
    bench.board.AddFile("games/Another, one.txt", "abc", 0);
    // FILES at the prompt clears the variables.
    bench.ExpectDialogue(R"(
CHDIR "games" | x=5 | files -> A:/games#   <DIR>  sub#)"
                         R"(00:00 00-00-1980          3  Another, one.txt#)"
                         R"(10:07 21-06-2025       1234  prog.bas#)"
                         R"(1 directory, 2 files, 13623296 bytes free
PRINT x ->  0
FILES "sub" -> A:/games/sub#10:07 21-06-2025          0  deep.bas#)"
                         R"(0 directories, 1 file, 13623296 bytes free
FILES "no/*" -> Error : Could not find the path
FILES "B:" -> Error : SD card not present
FILES "*",SIZE -> Error : FILES is only by name in the simulated board
)");
    // The free bytes take their time, inside the line.
    const std::string head = bench.Say("FILES \"*.bas\"\r", 39);
    EXPECT_EQ(head.substr(head.size() - 21), "0 directories, 1 file");
    EXPECT_EQ(bench.Wait(1), ", 13623296 bytes free\r\n" + kQuiet);
}

TEST(Listing, OtherFamiliesLayouts) {
    const std::pair<const char*, const char*> rows[] = {{"cmm2", R"(
ls -> A:/#   <DIR>  dir#10:08 21-06-2025         20  a.zip#10:07 21-06-2025          7  b.txt#)"
                                                                 R"(1 directory, 2 files
CHDIR "dir" | LIST FILES -> A:/DIR#00:00 00-00-1980          0  x#0 directories, 1 file
)"},
                                                        {"armmite", R"(
FILES "*" -> A:/#   <DIR>  dir#        20  a.zip#         7  b.txt#1 directory, 2 files
)"},
                                                        {"maximite", R"(
files -> dir             <DIR>#a.zip                   20#b.txt                    7#)"
                                                                     R"(1 directory, 2 files
)"}};
    for (const auto& [family, script] : rows) {
        BoardBench bench(family);
        bench.board.AddFile("dir/x", "", 0);
        bench.board.AddFile("b.txt", std::string(7, 'x'), kStamp);
        bench.board.AddFile("a.zip", std::string(20, 'x'), kStamp + 60);
        bench.ExpectDialogue(script);
    }
}

TEST(Listing, PagesStopForOneRawByte) {
    FullBench bench("picomite", 60);
    std::string page = bench.Say("FILES\r");
    EXPECT_EQ(page.substr(page.size() - kAnyKey.size()), kAnyKey);
    EXPECT_EQ(Lines(page), 1u + 20u);  // the command and 20 lines
    page = bench.Say(" ");
    EXPECT_EQ(page.substr(0, kErase.size() + 16), kErase + "10:07 21-06-2025");
    EXPECT_EQ(Lines(page), 21u);
    // CR LF: the CR goes on to the end, the LF is left for the prompt.
    page = bench.Say("\r\n");
    EXPECT_EQ(page.substr(page.size() - 18), "\r\n" + kQuiet + "\r\n" + kQuiet);
    // Ctrl-C stops with no summary.
    bench.Say("FILES\r");
    EXPECT_EQ(bench.Say("\x03"), kLead603 + "\r\n" + kQuiet);
    // The stop may come right before the summary.
    EXPECT_FALSE(Has(bench.Say("FILES \"f10*\"\r"), kAnyKey));
    FullBench full("picomite", 19);
    EXPECT_TRUE(Has(full.Say("FILES\r"), "f118.bas\r\n" + kAnyKey));
    EXPECT_EQ(full.Say("x").substr(0, kErase.size() + 25), kErase + "0 directories, 19 files, ");
    for (const auto& [family, first] : {std::pair("picomite-6.00", 21), {"picocalc", 24}}) {
        FullBench other(family, 60);
        EXPECT_EQ(Lines(other.Say("FILES\r")), first + 1u);
        EXPECT_EQ(Lines(other.Say(" ")), first + 1u);
    }
}

TEST(Listing, NarrowConsolesCutNamesAndLines) {
    BoardBench narrow("picocalc");
    narrow.board.AddFile("a_rather_long_name.bas", std::string(1234, 'x'), kStamp);
    narrow.board.AddFile("ten_chars_", "", kStamp);
    const std::string out = narrow.Say("FILES\r");
    EXPECT_TRUE(Has(out, "\r\n10:07 21-06-2025       1234  a_rather_l\r\nong_name.bas\r\n"));
    EXPECT_TRUE(Has(out, "  ten_chars_\r\n"));
    narrow.Say("AUTOSAVE\rx=1" + std::string(60, ' ') + "'\r\x1a");
    EXPECT_EQ(narrow.Type("LIST ALL"),
              "x=1" + std::string(37, ' ') + "\r\n" + std::string(23, ' ') + "'\r\n" + kQuiet);
}

TEST(Listing, ListShowsKeywordsAnew) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rfor i=1 to 3:if i<>2 then print i;\"print \" ' print\rexit sub\r\x1a");
    bench.board.AddFile(
        "t.txt", "one\r\n\r\n" + std::string(60, 'a') + " " + std::string(30, 'b') + "\n", 0);
    bench.ExpectDialogue(
        "list all -> For i=1 To 3:If i<>2 Then Print i;\"print \" ' print#Exit Sub\n"
        "LIST \"t.txt\" -> one#" +
        std::string(60, 'a') + "#" + std::string(30, 'b') + "\n");
}

TEST(Listing, ListPagesBackAndForthOnFirmware603) {
    BoardBench bench;
    bench.Say(Program(50));
    const std::string erase = "\r" + std::string(30, ' ') + "\r";
    std::string page = bench.Say("LIST\r");
    EXPECT_EQ(page.substr(page.size() - 27), "Print 20\r\n" + kAnyKey);
    page = bench.Say(" ");
    EXPECT_EQ(page.substr(0, erase.size() + 10), erase + "Print 21\r\n");
    EXPECT_EQ(page.substr(page.size() - 35), "Print 40\r\nUP=prev  ANY KEY=next ...");
    page = bench.Say("x");
    EXPECT_EQ(page.substr(page.size() - 35), "Print 50\r\nUP=prev  ANY KEY=quit ...");
    page = bench.Say("\x1b[A");  // up
    EXPECT_EQ(page.substr(0, erase.size() + 10), erase + "Print 21\r\n");
    bench.Say("x");
    EXPECT_EQ(bench.Say("\r"), erase + kQuiet);
    EXPECT_EQ(Lines(bench.Say("LIST ALL\r")), 51u);
    BoardBench older("picomite-6.00");
    older.Say(Program(25));
    page = older.Say("LIST\r");
    EXPECT_EQ(page.substr(page.size() - 27), "Print 22\r\n" + kAnyKey);
    EXPECT_EQ(older.Say("x"), kErase + "Print 23\r\nPrint 24\r\nPrint 25\r\n> ");
}

}  // namespace
