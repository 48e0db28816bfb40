// Commands on files, flash slots, options and clocks: silence on success, and the words of
// each error.
#include "tests/simulator/board_bench.h"

namespace {

// Types each command and compares what comes between its echo and the prompt.
struct Exchange {
    const char* command;
    const char* answer;  // without its line end; empty: nothing is printed
};

void ExpectAll(BoardBench& bench, const std::vector<Exchange>& rows) {
    for (const Exchange& row : rows) {
        SCOPED_TRACE(row.command);
        std::string out = bench.Say(std::string(row.command) + "\r", 2000);
        out.erase(0, std::string(row.command).size() + 2);
        const size_t end = out.find_first_of("\x1b>");
        std::string answer = out.substr(0, end);
        while (!answer.empty() && (answer.back() == '\n' || answer.back() == '\r')) {
            answer.pop_back();
        }
        EXPECT_EQ(answer, row.answer);
    }
}

}  // namespace

TEST(Commands, FilesOnTheFlashDriveAndOnACard) {
    BoardSetup setup;
    setup.sdCard = true;
    BoardBench bench("picomite", setup);
    bench.Say("AUTOSAVE\rPRINT 1\r\x1a");
    ExpectAll(bench, {
                         {"MKDIR \"games\"", ""},
                         {"MKDIR \"GAMES\"", "Error : Entry already exists"},
                         {"CHDIR \"nosuch\"", "Error : Could not find the path"},
                         {"CHDIR \"games\"", ""},
                         {"SAVE \"one\"", ""},
                         {"CHDIR \"..\"", ""},
                         {"CHDIR \"..\"", "Error : Could not find the path"},
                         {"RMDIR \"games\"", "Error : Dir is not empty"},
                         {"KILL \"games/two.bas\"", "Error : Could not find the file"},
                         {"RUN \"games/one\"", " 1"},
                         {"KILL \"games/one.bas\"", ""},
                         {"RMDIR \"games\"", ""},
                         {"RMDIR \"games\"", "Error : Could not find the file"},
                         {"MKDIR \"B:/x\"", "Error : Only valid on current drive"},
                         {"DRIVE \"b:\"", ""},
                         {"MKDIR \"x\"", ""},
                         {"MKDIR \"x\"", "Error : Access denied due to prohibited access"},
                         {"SAVE \"x/y\"", ""},
                         {"RMDIR \"x\"",
                          "Error : FAccess denied due to prohibited access or directory full"},
                         {"CHDIR \"A:/\"", "Error : Only valid on current drive"},
                     });
    EXPECT_TRUE(bench.board.AddFile("A:/big1", std::string(13 * 1024 * 1024 - 8192, 'x'), 0));
    EXPECT_FALSE(bench.board.AddFile("A:/big2", std::string(8192, 'x'), 0));
    BoardBench micromite("micromite");  // no drive at all
    ExpectAll(micromite, {{"KILL \"x\"", "Error: Unknown command"}});
}

TEST(Commands, KillWithAPatternAsks) {
    BoardBench bench;
    for (const char* name : {"a.tmp", "b.tmp", "c.bas"}) bench.board.AddFile(name, "x", 0);
    EXPECT_EQ(bench.Say("KILL \"*.tmp\"\r"), "KILL \"*.tmp\"\r\nDeleting a.tmp ? (Y/N) ");
    EXPECT_EQ(bench.Say("n"), "N\r\nDeleting b.tmp ? (Y/N) ");
    EXPECT_EQ(bench.Say("y"), "Y\r\n> " + kTail603);
    EXPECT_EQ(bench.Say("KILL \"*\",ALL\r"),
              "KILL \"*\",ALL\r\nDeleting * from A:/\r\nAre you sure ? (Y/N) ");
    EXPECT_EQ(bench.Say("x"), "X\r\n> " + kTail603);
    std::string data;
    EXPECT_TRUE(bench.board.ReadFile("a.tmp", &data) && bench.board.ReadFile("c.bas", &data));
    EXPECT_FALSE(bench.board.ReadFile("b.tmp", &data));
    bench.Say("KILL \"*\",ALL\ry");
    EXPECT_FALSE(bench.board.ReadFile("a.tmp", &data) || bench.board.ReadFile("c.bas", &data));
}

TEST(Commands, FlashSlots) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rprint \"hello\"\r\x1a");
    EXPECT_EQ(bench.Say("flash overwrite 1\r", 1499), "flash overwrite 1\r\n");
    EXPECT_EQ(bench.Wait(1), "> " + kTail603);
    ExpectAll(bench,
              {
                  {"NEW", ""},
                  {"FLASH SAVE 2", ""},
                  {"FLASH LIST",
                   " Slot 1 in use: \"Print \"hello\"\"\r\n Slot 2 in use\r\n Slot 3 available"},
                  {"FLASH SAVE 1", "Error : Already programmed"},
                  {"FLASH LOAD 3", "Error : Flash slot empty"},
                  {"FLASH ERASE 4", "Error : 4 is invalid (valid is 1 to 3)"},
                  {"FLASH RUN 1", "hello"},
                  {"FLASH LIST 1", "Print \"hello\""},
                  {"flash erase 1", ""},
                  {"FLASH LIST", " Slot 1 available\r\n Slot 2 in use\r\n Slot 3 available"},
                  {"FLASH ERASE ALL", ""},
                  {"FLASH LIST", " Slot 1 available\r\n Slot 2 available\r\n Slot 3 available"},
                  {"RUN", "hello"},  // the program that FLASH RUN brought
              });
    BoardBench cmm2("cmm2");
    ExpectAll(cmm2, {{"FLASH LIST", "Unknown command"}});
}

TEST(Commands, ClockAndClockChip) {
    BoardBench bench;
    EXPECT_EQ(bench.Say("date$ = \"04/03/2026\": time$ = \"05:06:07\"\r", 0).substr(42),
              "> " + kTail603);
    bench.Wait(2000);
    ExpectAll(bench, {
                         {"PRINT DATE$ + \" \" + TIME$", "04-03-2026 05:06:09"},
                         {"Date$ = \"2024-02-29\"", ""},
                         {"PRINT DATE$", "29-02-2024"},
                         {"Date$ = \"1-12-24\"", ""},
                         {"PRINT DATE$", "01-12-2024"},
                         {"TIME$ = \"23\"", ""},
                         {"Date$ = \"29/02/2025\"", "Error : Day is invalid"},
                         {"Date$ = \"01/13/2025\"", "Error : Month is not valid"},
                         {"Date$ = \"01/01/3500\"", "Error : Year is not valid"},
                         {"Time$ = \"24:00\"", "Error : Invalid time"},
                         // The chip has its own time, until it is fetched.
                         {"RTC SETTIME 2026, 03, 04, 05, 06, 07", ""},
                         {"PRINT DATE$", "01-12-2024"},
                         {"RTC GETTIME", ""},
                         {"PRINT DATE$", "04-03-2026"},
                         {"RTC SETTIME 26,12,31,23,59,50", ""},
                         {"RTC GETTIME", ""},
                         {"PRINT DATE$;TIME$", "31-12-202623:59:54"},
                         {"RTC SETTIME \"05/06/27 10:20\"", ""},
                         {"RTC GETTIME", ""},
                         {"PRINT DATE$;TIME$", "05-06-202710:20:04"},
                         {"RTC SETTIME 26,12", "Error : Argument count"},
                     });
    BoardSetup setup;
    setup.clockChip = false;
    BoardBench noChip("picomite", setup);
    ExpectAll(noChip, {{"RTC GETTIME", "Error : RTC not responding"}});
    setup.i2c = false;
    BoardBench noBus("picomite", setup);
    ExpectAll(noBus, {{"RTC GETTIME", "Error : SYSTEM I2C not configured"}});
}

TEST(Commands, OptionList) {
    BoardBench bench;
    bench.Say("OPTION AUTORUN ON\r");
    EXPECT_EQ(bench.Say("OPTION LIST\r"),
              "OPTION LIST\r\n\rPicoMite MMBasic RP2350A V6.03.00RC25\r\n"
              "OPTION AUTORUN  ON\r\nOPTION COLOURCODE ON\r\nOPTION CPUSPEED (KHz) 252000\r\n"
              "OPTION SYSTEM I2C GP14, GP15\r\n> " +
                  kTail603);
    bench.Say("OPTION AUTORUN OFF\r");
    EXPECT_EQ(bench.Say("OPTION LIST\r").find("AUTORUN"), std::string::npos);
    EXPECT_EQ(bench.Say("OPTION CPUSPEED 378000\r"), "OPTION CPUSPEED 378000\r\n> " + kTail603);
    EXPECT_NE(bench.Say("OPTION LIST\r").find("(KHz) 378000"), std::string::npos);
}

TEST(Commands, ThePlainCommandLine) {
    BoardBench bench("command");
    bench.board.AddFile("d/x.txt", "one\ntwo", 0);
    ExpectAll(bench, {
                         {"echo hello", "hello"},
                         {"cd d", ""},
                         {"cat x.txt", "one\r\ntwo"},
                         {"files", "x.txt                    7\r\n0 directories, 1 file"},
                         {"rm x.txt", ""},
                         {"cat x.txt", "error: no such file"},
                         {"chdir \"..\"", ""},
                         {"rmdir \"d\"", ""},
                         {"nosuch", "error: unknown command"},
                         {"xmodem x", "error: xmodem: send \"name\" or receive \"name\""},
                     });
}
