// Listings and their pages, files, flash slots, options and clocks.
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

// A board with so many files, and a program of as many lines.
struct FullBench : BoardBench {
    FullBench(const char* family, int count) : BoardBench(family) {
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
        "FILES \"B:\" -> Error : SD card not present\n"
        "FILES \"*\",SIZE -> Error : FILES is only by name in the simulated board\n");
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
    EXPECT_TRUE(Has(full.Say("FILES\r"), "f119.bas\r\n" + kAnyKey));
    EXPECT_EQ(full.Say("x").substr(0, 44), Erase(17) + "0 directories, 19 files, ");
    for (const auto& [family, first] : {std::pair("picomite-6.00", 21), {"picocalc", 24}}) {
        FullBench other(family, 60);
        EXPECT_EQ(Lines(other.Say("FILES\r")), first + 1);
        EXPECT_EQ(Lines(other.Say(" ")), first + 1);
    }
}

TEST(Listing, LinesAreCutAtTheWidthAndKeywordsShownAnew) {
    BoardBench narrow("picocalc");
    narrow.board.AddFile("a_rather_long_name.bas", std::string(1234, 'x'), kStamp);
    narrow.board.AddFile("ten_chars_.", "one\r\n\r\n" + std::string(30, 'a') + " bbbbbbbbbbbb\n",
                         kStamp);
    narrow.Say("AUTOSAVE\rfor i=1 to 3:print i;\"print aaaa\" ' print\rexit sub\r\x1a");
    narrow.ExpectDialogue(
        "FILES -> A:/#10:07 21-06-2025       1234  a_rather_l#ong_name.bas#"
        "10:07 21-06-2025         51  ten_chars_#.#0 directories, 2 files, 13623296 bytes free\n"
        "list all -> For i=1 To 3:Print i;\"print aaaa\" ' prin#t#Exit Sub\n"
        "LIST \"ten_chars_.\" -> one#" +
        std::string(30, 'a') + "#bbbbbbbbbbbb\n");
}

TEST(Listing, ListPagesBackAndForthOnFirmware603) {
    FullBench bench("picomite", 50);
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
}

TEST(Commands, FilesOnTheFlashDriveAndOnACard) {
    BoardSetup setup;
    setup.sdCard = true;
    BoardBench bench("picomite", setup);
    bench.Say("AUTOSAVE\rPRINT 1\r\x1a");
    bench.ExpectDialogue(R"(
MKDIR "games" | MKDIR "GAMES" -> Error : Entry already exists
CHDIR "nosuch" -> Error : Could not find the path
CHDIR "games" | SAVE "one" | CHDIR ".." | CHDIR ".." -> Error : Could not find the path
RMDIR "games" -> Error : Dir is not empty
KILL "games/*" -> Error : KILL takes no pattern in the simulated board
*games/one ->  1
LOAD "games/one",R ->  1
KILL "games/one.bas" | RMDIR "games" | RMDIR "games" -> Error : Could not find the file
RUN "one" -> Error : Could not find the file
MKDIR "B:/x" -> Error : Only valid on current drive
b: | MKDIR "x" | MKDIR "x" -> Error : Access denied due to prohibited access
SAVE "x/y" | RMDIR "x" -> Error : FAccess denied due to prohibited access or directory full
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

TEST(Commands, ClockAndClockChip) {
    BoardBench bench;
    // The chip has its own time, until it is fetched.
    bench.ExpectDialogue(R"(
date$ = "04/03/2026": time$ = "05:06:07" | PRINT DATE$ + " " + TIME$ -> 04-03-2026 05:06:09
Date$ = "2024-02-29" | PRINT DATE$ -> 29-02-2024
TIME$ = "23" | Date$ = "29/02/2025" -> Error : Day is invalid
Time$ = "24:00" -> Error : Invalid time
RTC SETTIME 26,12,31,23,59,50 | PRINT DATE$ -> 29-02-2024
RTC GETTIME | PRINT DATE$;TIME$ -> 31-12-202623:59:56
)");
}

TEST(Commands, OptionListAndTheBoardsThatKnowLess) {
    BoardBench("picocalc")
        .ExpectDialogue(R"(
OPTION LIST -> PicoMite MMBasic RP2350A V6.03.00RC25#OPTION COLOURCODE ON#)"
                        R"(OPTION CPUSPEED (KHz) 252000#)"
                        R"(OPTION KEYBOARD PICOCALC#OPTION SYSTEM I2C GP14, GP15
EDIT -> Error : EDIT is not in the simulated board
)");
    BoardBench("cmm2").ExpectDialogue(
        "FLASH LIST -> Unknown command\n"
        "FILES -> Its file manager is not in the simulated board: use LS\n");
    EXPECT_EQ(BoardBench("command").Say("any thing\r"), "any thing\r\n> ");
}

}  // namespace
