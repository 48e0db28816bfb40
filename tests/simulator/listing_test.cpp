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

void AddMany(BoardBench& bench, int count) {
    for (int i = 0; i < count; ++i) {
        bench.board.AddFile("f" + std::to_string(100 + i) + ".bas", "x", kStamp);
    }
}

std::string Program(int lines) {
    std::string text = "AUTOSAVE\r";
    for (int i = 1; i <= lines; ++i) text += "print " + std::to_string(i) + "\r";
    return text + "\x1a";
}

}  // namespace

TEST(Listing, FilesOfThePicoMite) {
    BoardBench bench;
    bench.board.AddFile("games/sub/deep.bas", "", kStamp);
    bench.board.AddFile("games/prog.bas", std::string(1234, 'x'), kStamp);
    bench.board.AddFile("games/Another, one.txt", "abc", 0);
    EXPECT_EQ(bench.Say("CHDIR \"games\"\r"), "CHDIR \"games\"\r\n> " + kTail603);
    EXPECT_EQ(bench.Say("files\r"),
              "files\r\nA:/games\r\n"
              "   <DIR>  sub\r\n"
              "00:00 00-00-1980          3  Another, one.txt\r\n"
              "10:07 21-06-2025       1234  prog.bas\r\n"
              "1 directory, 2 files, 13623296 bytes free\r\n> " +
                  kTail603);
    // The free bytes take their time, inside the line.
    const std::string head = bench.Say("FILES \"*.bas\",SIZE\r", 39);
    EXPECT_EQ(head.substr(head.size() - 21), "0 directories, 1 file");
    EXPECT_EQ(bench.Wait(1), ", 13623296 bytes free\r\n> " + kTail603);
    EXPECT_NE(bench.Say("FILES \"sub\"\r")
                  .find("\r\nA:/games/sub\r\n"
                        "10:07 21-06-2025          0  deep.bas\r\n"),
              std::string::npos);
    EXPECT_EQ(bench.Say("FILES \"no/*\"\r"),
              "FILES \"no/*\"\r\nError : Could not find the path\r\n" + kLoud603);
    EXPECT_EQ(bench.Say("FILES \"B:\"\r"),
              "FILES \"B:\"\r\nError : SD card not present\r\n" + kLoud603);
    // FILES at the prompt clears the variables.
    bench.Say("x=5\r");
    bench.Say("FILES\r");
    EXPECT_EQ(bench.Say("PRINT x\r"), "PRINT x\r\n 0\r\n> " + kTail603);
}

TEST(Listing, OtherFamiliesLayoutsAndOrders) {
    const auto fill = [](BoardBench& bench) {
        bench.board.AddFile("dir/x", "", 0);
        bench.board.AddFile("b.txt", std::string(7, 'x'), kStamp);
        bench.board.AddFile("a.zip", std::string(20, 'x'), kStamp + 60);
    };
    const std::string loud = "\x1b[?25h\x1b[37m\x1b[m\r\n> ";
    BoardBench cmm2("cmm2");
    fill(cmm2);
    EXPECT_EQ(cmm2.Say("ls\r"),
              "ls\r\nA:/\r\n   <DIR>  dir\r\n"
              "10:08 21-06-2025         20  a.zip\r\n"
              "10:07 21-06-2025          7  b.txt\r\n"
              "1 directory, 2 files\r\n" +
                  loud);
    const std::string bySize = cmm2.Say("LIST FILES \"*\",TIME\r");
    EXPECT_LT(bySize.find("b.txt"), bySize.find("a.zip"));
    EXPECT_EQ(cmm2.Say("FILES\r").substr(7, 12), "\x1b[2J\x1b[HA:/\r\n");  // a whole screen
    EXPECT_EQ(cmm2.Say("x\x1b", 29), "");
    EXPECT_EQ(cmm2.Wait(1), "\x1b[2J\x1b[H" + loud);
    EXPECT_EQ(cmm2.Say("CHDIR \"dir\"\r"), "CHDIR \"dir\"\r\n> ");
    EXPECT_EQ(cmm2.Say("PRINT CWD$\r"), "PRINT CWD$\r\nA:/DIR\r\n> ");
    BoardBench armmite("armmite");
    fill(armmite);
    EXPECT_EQ(armmite.Say("FILES \"*\",TYPE\r").substr(16),
              "A:/\r\n   <DIR>  dir\r\n         7  b.txt\r\n        20  a.zip\r\n"
              "1 directory, 2 files\r\n> ");
    BoardBench maximite("maximite");
    fill(maximite);
    EXPECT_EQ(maximite.Say("files\r"),
              "files\r\ndir             <DIR>\r\na.zip                   20\r\n"
              "b.txt                    7\r\n1 directory, 2 files\r\n> ");
}

TEST(Listing, PagesStopForOneRawByte) {
    BoardBench bench;
    AddMany(bench, 60);
    std::string page = bench.Say("FILES\r");
    EXPECT_EQ(page.substr(page.size() - kAnyKey.size()), kAnyKey);
    EXPECT_EQ(Lines(page), 1u + 20u);  // the command and 20 lines
    page = bench.Say(" ");
    EXPECT_EQ(page.substr(0, kErase.size() + 16), kErase + "10:07 21-06-2025");
    EXPECT_EQ(Lines(page), 21u);
    // CR LF: the CR goes on to the end, the LF is left for the prompt.
    page = bench.Say("\r\n");
    EXPECT_EQ(page.substr(page.size() - 18), "\r\n> " + kTail603 + "\r\n> " + kTail603);
    // Ctrl-C stops with no summary.
    page = bench.Say("FILES\r");
    EXPECT_EQ(bench.Say("\x03"), "\x1b[?25h\x1b[97;40m\r\n> " + kTail603);
    // The stop may come right before the summary.
    page = bench.Say("FILES \"f10*\"\r");
    EXPECT_EQ(page.find(kAnyKey), std::string::npos);
    BoardBench full;
    AddMany(full, 19);
    EXPECT_NE(full.Say("FILES\r").find("f118.bas\r\n" + kAnyKey), std::string::npos);
    EXPECT_EQ(full.Say("x").substr(0, kErase.size() + 25), kErase + "0 directories, 19 files, ");
    struct {
        const char* family;
        size_t first, next;
    } const rows[] = {{"picomite-6.02", 21, 22}, {"picocalc", 24, 25}};
    for (const auto& row : rows) {
        BoardBench other(row.family);
        AddMany(other, 60);
        EXPECT_EQ(Lines(other.Say("FILES\r")), row.first + 1);
        EXPECT_EQ(Lines(other.Say(" ")), row.next);
    }
    // A console of 100 rows: no stop before line 96.
    EXPECT_EQ(bench.Say("OPTION DISPLAY 100\r"),
              "OPTION DISPLAY 100\r\n\x1b[8;100;80t> " + kTail603);
    EXPECT_EQ(bench.Say("FILES\r").find(kAnyKey), std::string::npos);
    BoardBench picoCalc("picocalc");
    EXPECT_EQ(picoCalc.Say("OPTION DISPLAY 30\r").substr(19),
              "Error : Cannot change LCD console\r\n" + kLoud603);
}

TEST(Listing, LongNamesAreCutAtTheWidth) {
    BoardBench narrow("picocalc");
    narrow.board.AddFile("a_rather_long_name.bas", std::string(1234, 'x'), kStamp);
    narrow.board.AddFile("ten_chars_", "", kStamp);
    const std::string out = narrow.Say("FILES\r");
    EXPECT_NE(out.find("\r\n10:07 21-06-2025       1234  a_rather_l\r\nong_name.bas\r\n"),
              std::string::npos);
    EXPECT_NE(out.find("  ten_chars_\r\n"), std::string::npos);
    BoardBench wide;
    const std::string name(51, 'n');
    wide.board.AddFile(name, "", kStamp);
    EXPECT_NE(wide.Say("FILES\r").find("  " + name.substr(1) + "\r\nn\r\n"), std::string::npos);
}

TEST(Listing, ListShowsKeywordsAnewAndBreaksLongLines) {
    BoardBench bench;
    bench.Say(
        "AUTOSAVE\rfor i=1 to 3:if i<>2 then print i;chr$(65);\"print \" ' print\rnext\r\x1a");
    EXPECT_EQ(bench.Say("list all\r"),
              "list all\r\nFor i=1 To 3:If i<>2 Then Print i;Chr$(65);\"print \" ' print\r\n"
              "Next\r\n> " +
                  kTail603);
    BoardBench narrow("picocalc");
    narrow.Say("AUTOSAVE\rx=1" + std::string(60, ' ') + "'\r\x1a");
    EXPECT_EQ(narrow.Say("LIST ALL\r"), "LIST ALL\r\nx=1" + std::string(37, ' ') + "\r\n" +
                                            std::string(23, ' ') + "'\r\n> " + kTail603);
    bench.board.AddFile(
        "t.txt", "one\r\n\r\n" + std::string(60, 'a') + " " + std::string(30, 'b') + "\n", 0);
    EXPECT_EQ(bench.Say("LIST \"t.txt\"\r"), "LIST \"t.txt\"\r\none\r\n" + std::string(60, 'a') +
                                                 "\r\n" + std::string(30, 'b') + "\r\n> " +
                                                 kTail603);
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
    EXPECT_EQ(bench.Say("\r"), erase + "> " + kTail603);
    EXPECT_EQ(Lines(bench.Say("LIST ALL\r")), 51u);
    BoardBench older("picomite-6.00");
    older.Say(Program(25));
    page = older.Say("LIST\r");
    EXPECT_EQ(page.substr(page.size() - 27), "Print 22\r\n" + kAnyKey);
    EXPECT_EQ(older.Say("x"), kErase + "Print 23\r\nPrint 24\r\nPrint 25\r\n> ");
}
