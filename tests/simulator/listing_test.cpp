// FILES, LS and LIST: layout, order, paging, broken lines.
#include <algorithm>

#include "tests/simulator/board_bench.h"

namespace {

// 21-06-2025 10:07:30.
constexpr int64_t kStamp = 1750500450;
const std::string kAnyKey = "PRESS ANY KEY ...";

auto Lines(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

std::string Erase(size_t blanks) {
    return "\r" + std::string(blanks, ' ') + "\r";
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
    const std::pair<const char*, const char*> rows[] = {
        {"cmm2",
         "ls -> A:/#   <DIR>  dir#10:07 21-06-2025          7  b.txt#1 directory, 1 file\n"
         "CHDIR \"dir\" | LIST FILES -> A:/DIR#00:00 00-00-1980          0  x#"
         "0 directories, 1 file\n"},
        {"armmite", "FILES \"*\" -> A:/#   <DIR>  dir#         7  b.txt#1 directory, 1 file\n"},
        {"maximite",
         "files -> dir             <DIR>#b.txt                    7#1 directory, 1 file\n"}};
    for (const auto& [family, script] : rows) {
        BoardBench bench(family);
        bench.board.AddFile("dir/x", "", 0);
        bench.board.AddFile("b.txt", std::string(7, 'x'), kStamp);
        bench.ExpectDialogue(script);
    }
}

TEST(Listing, PagesStopForOneRawByte) {
    FullBench bench("picomite", 60);
    std::string page = bench.Say("FILES\r");
    EXPECT_EQ(page.substr(page.size() - kAnyKey.size()), kAnyKey);
    EXPECT_EQ(Lines(page), 1 + 20);  // the command and 20 lines
    page = bench.Say(" ");
    EXPECT_EQ(page.substr(0, 35), Erase(17) + "10:07 21-06-2025");
    EXPECT_EQ(Lines(page), 21);
    // CR LF: the CR goes on to the end, the LF is left for the prompt.
    page = bench.Say("\r\n");
    EXPECT_EQ(page.substr(page.size() - 18), "\r\n" + kQuiet + "\r\n" + kQuiet);
    bench.Say("FILES\r");  // Ctrl-C stops with no summary
    EXPECT_EQ(bench.Say("\x03"), kLead603 + "\r\n" + kQuiet);
    FullBench full("picomite", 19);  // the stop comes right before the summary
    EXPECT_TRUE(Has(full.Say("FILES\r"), "f118.bas\r\n" + kAnyKey));
    EXPECT_EQ(full.Say("x").substr(0, 44), Erase(17) + "0 directories, 19 files, ");
    for (const auto& [family, first] : {std::pair("picomite-6.00", 21), {"picocalc", 24}}) {
        FullBench other(family, 60);
        EXPECT_EQ(Lines(other.Say("FILES\r")), first + 1);
        EXPECT_EQ(Lines(other.Say(" ")), first + 1);
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
    BoardBench bench, older("picomite-6.00");
    bench.Say(Program(50));
    const auto page = [&](const char* key) {
        const std::string out = bench.Say(key), erase = Erase(30);
        EXPECT_EQ(out.substr(0, erase.size()), erase);
        return out.substr(erase.size(), 10) + "..." + out.substr(out.size() - 35);
    };
    EXPECT_TRUE(Has(bench.Say("LIST\r"), "Print 20\r\n" + kAnyKey));
    EXPECT_EQ(page(" "), "Print 21\r\n...Print 40\r\nUP=prev  ANY KEY=next ...");
    EXPECT_EQ(page("x"), "Print 41\r\n...Print 50\r\nUP=prev  ANY KEY=quit ...");
    EXPECT_EQ(page("\x1b[A"), "Print 21\r\n...Print 40\r\nUP=prev  ANY KEY=next ...");
    bench.Say("x");
    EXPECT_EQ(bench.Say("\r"), Erase(30) + kQuiet);
    older.Say(Program(24));
    EXPECT_TRUE(Has(older.Say("LIST\r"), "Print 22\r\n" + kAnyKey));
    EXPECT_EQ(older.Say("x"), Erase(17) + "Print 23\r\nPrint 24\r\n> ");
}

}  // namespace
