// Listings and their pages, files and flash slots.
#include <algorithm>

#include "tests/simulator/board_bench.h"

namespace {

// 21-06-2025 10:07:30.
constexpr int64_t kStamp = 1750500450;
const std::string kAnyKey = "PRESS ANY KEY ...";

auto Lines(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

const std::string kErase = "\r" + std::string(17, ' ') + "\r";

// A board with so many files, and a program of as many lines.
struct FullBench : BoardBench {
    explicit FullBench(int count) {
        Say("AUTOSAVE\r");
        for (int i = 1; i <= count; ++i) {
            board.AddFile("f" + std::to_string(100 + i) + ".bas", "x", kStamp);
            Say("print " + std::to_string(i) + "\r", 0);
        }
        Say("\x1a");
    }
};

TEST(Listing, FilesOfThePicoMite) {
    BoardBench bench;
    bench.board.AddFile("games/sub/deep.bas", "", kStamp);
    bench.board.AddFile("games/prog.bas", std::string(1234, 'x'), kStamp);
    bench.board.AddFile("games/Another, one.txt", "abc", 0);
    bench.ExpectDialogue(
        "CHDIR \"games\" | x=5 | files -> A:/games#   <DIR>  sub#"
        "00:00 00-00-1980          3  Another, one.txt#10:07 21-06-2025       1234  prog.bas#"
        "1 directory, 2 files, 13623296 bytes free\n"
        "PRINT x ->  0\n"  // FILES at the prompt clears the variables
        "FILES \"no/*\" -> Error : Could not find the path\n"
        "FILES \"B:\" -> Error : SD card not present\n");
}

TEST(Listing, OtherFamiliesLayouts) {
    const std::pair<const char*, const char*> rows[] = {
        {"cmm2",
         "ls -> A:/#   <DIR>  dir#10:07 21-06-2025          7  b.txt#1 directory, 1 file\n"},
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
    FullBench bench(60);
    std::string page = bench.Say("FILES\r");
    EXPECT_EQ(page.substr(page.size() - kAnyKey.size()), kAnyKey);
    EXPECT_EQ(Lines(page), 1 + 20);  // the command and 20 lines
    page = bench.Say(" ");
    EXPECT_EQ(page.substr(0, 35), kErase + "10:07 21-06-2025");
    EXPECT_EQ(Lines(page), 21);
    // CR LF: the CR goes on to the end, the LF is left for the prompt.
    page = bench.Say("\r\n");
    EXPECT_EQ(page.substr(page.size() - 18), "\r\n" + kQuiet + "\r\n" + kQuiet);
    bench.Say("FILES\r");  // Ctrl-C stops with no summary
    EXPECT_EQ(bench.Say("\x03"), kLead603 + "\r\n" + kQuiet);
    FullBench full(19);  // the stop comes right before the summary
    EXPECT_TRUE(Has(full.Say("FILES\r"), "f119.bas\r\n" + kAnyKey));
    EXPECT_EQ(full.Say("x").substr(0, 44), kErase + "0 directories, 19 files, ");
}

TEST(Commands, FilesOnTheFlashDriveAndOnACard) {
    BoardSetup setup;
    setup.sdCard = true;
    BoardBench bench("picomite", setup);
    bench.Say("AUTOSAVE\rPRINT 1\r\x1a");
    bench.ExpectDialogue(R"(
MKDIR "games" | MKDIR "GAMES" -> Error : Entry already exists
CHDIR "games" | SAVE "one" | CHDIR ".." | CHDIR ".." -> Error : Could not find the path
*games/one ->  1
LOAD "games/one",R ->  1
RUN "one" -> Error : Could not find the file
b: | MKDIR "x" | MKDIR "x" -> Error : Access denied due to prohibited access
)");
    EXPECT_TRUE(bench.board.AddFile("A:/big1", std::string(13 * 1024 * 1024 - 8192, 'x'), 0));
    EXPECT_FALSE(bench.board.AddFile("A:/big2", std::string(8192, 'x'), 0));
}

// Saved, shown, run and erased they are in the file manager's tests.
TEST(Commands, FlashSlots) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rprint \"hello\"\r\x1a");
    bench.Follow({{"flash save 1\r", 1499, "flash save 1\r\n"}, {"", 1, kQuiet}});
    bench.ExpectDialogue(R"(
NEW | FLASH SAVE 1 -> Error : Already programmed
FLASH LOAD 3 -> Error : Flash slot empty
FLASH ERASE 4 -> Error : 4 is invalid (valid is 1 to 3)
FLASH RUN 1 -> hello
FLASH ERASE ALL | FLASH LIST ->  Slot 1 available# Slot 2 available# Slot 3 available
)");
}

}  // namespace
