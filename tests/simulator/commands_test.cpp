// Commands on files, flash slots, options and clocks: silence on success, and the words of
// each error.
#include "tests/simulator/board_bench.h"

namespace {

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
KILL "games/two.bas" -> Error : Could not find the file
KILL "games/*" -> Error : KILL takes no pattern in the simulated board
RUN "games/one" ->  1
*games/one ->  1
LOAD "games/one",R ->  1
KILL "games/one.bas" | RMDIR "games" | RMDIR "games" -> Error : Could not find the file
LOAD "one" -> Error : Could not find the file
MKDIR "B:/x" -> Error : Only valid on current drive
b: | MKDIR "x" | MKDIR "x" -> Error : Access denied due to prohibited access
SAVE "x/y" | RMDIR "x" -> Error : FAccess denied due to prohibited access or directory full
CHDIR "x/y.bas" -> Error : Could not find the path
CHDIR "A:/" -> Error : Only valid on current drive
NEW | DRIVE "A:" | SAVE "x" -> Error : Nothing to save
)");
    EXPECT_TRUE(bench.board.AddFile("A:/big1", std::string(13 * 1024 * 1024 - 8192, 'x'), 0));
    EXPECT_FALSE(bench.board.AddFile("A:/big2", std::string(8192, 'x'), 0));
}

TEST(Commands, FlashSlots) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rprint \"hello\"\r\x1a");
    bench.Follow({{"flash save 1\r", 1499, "flash save 1\r\n"}, {"", 1, kQuiet}});
    bench.ExpectDialogue(R"(
NEW | FLASH OVERWRITE 2 | FLASH SAVE 1 -> Error : Already programmed
FLASH LIST ->  Slot 1 in use: "Print "hello""# Slot 2 in use# Slot 3 available
FLASH LOAD 3 -> Error : Flash slot empty
FLASH ERASE 4 -> Error : 4 is invalid (valid is 1 to 3)
FLASH RUN 1 -> hello
FLASH LIST 1 -> Print "hello"
flash erase 1 | FLASH LIST ->  Slot 1 available# Slot 2 in use# Slot 3 available
FLASH ERASE ALL | FLASH LIST ->  Slot 1 available# Slot 2 available# Slot 3 available
RUN -> hello
)");  // the program that FLASH RUN brought
}

TEST(Commands, ClockAndClockChip) {
    BoardBench bench;
    // The chip has its own time, until it is fetched.
    bench.ExpectDialogue(R"(
date$ = "04/03/2026": time$ = "05:06:07" | PRINT DATE$ + " " + TIME$ -> 04-03-2026 05:06:09
Date$ = "2024-02-29" | PRINT DATE$ -> 29-02-2024
Date$ = "1-12-24" | PRINT DATE$ -> 01-12-2024
TIME$ = "23" | Date$ = "29/02/2025" -> Error : Day is invalid
Date$ = "01/13/2025" -> Error : Month is not valid
Date$ = "01/01/3500" -> Error : Year is not valid
Time$ = "24:00" -> Error : Invalid time
RTC SETTIME 26,12,31,23,59,50 | PRINT DATE$ -> 01-12-2024
RTC GETTIME | PRINT DATE$;TIME$ -> 31-12-202623:59:56
RTC SETTIME 26,12 -> Error : Argument count
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
