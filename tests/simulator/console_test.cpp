// What a board says to what is typed, byte for byte and at its times.
#include "tests/simulator/board_bench.h"

namespace {

// At power-up, after an error, printed at column 1, and after an ordinary command.
TEST(Console, EachFirmwareHasItsOwnPrompts) {
    const std::string unknown = "Error : Unknown command\r\n", print = "PRINT 6*7\r\n 42\r\n";
    const std::pair<const char*, std::string> rows[] = {
        {"picomite", kQuiet + unknown + kLoud603 + print + kQuiet},
        {"picomite-6.00", "> " + unknown + "\x1b[?25h> " + print + "> "},
        {"cmm2", "> Unknown command\r\n\x1b[?25h\x1b[37m\x1b[m\r\n> " + print + "> "},
        {"armmite", "\x1b[?1000l> " + unknown + "> " + print + "> "},
        {"micromite+", "> Error: Unknown command\r\n> " + print + "> "},
    };
    for (const auto& [family, told] : rows) {
        BoardBench bench(family);
        const std::string start = bench.signOn.substr(bench.signOn.rfind("\r\n\r\n") + 4);
        EXPECT_EQ(start + bench.Say("nosuch\r").substr(8) + bench.Say("PRINT 6*7\r"), told);
    }
}

TEST(Console, TypedLines) {
    BoardBench bench;
    EXPECT_EQ(bench.signOn.rfind("\rPicoMite MMBasic RP2350A V6.03.00RC25\r\n", 0), 0u);
    bench.board.SetListening(false);  // what is printed for nobody is lost
    EXPECT_EQ(bench.Say("PRINT 1\r"), "");
    bench.board.SetListening(true);
    const std::string row(80, 'a'), mark = " \b";
    bench.Follow({
        {"x=1\r\n", 1, "x=1\r\n" + kQuiet + "\r\n" + kQuiet},  // two line ends, two prompts
        {"a\xc3\xa9\001b\tc\t", 1, "ab  c "},  // 0x20 to 0x7e; a tab to a multiple of two
        {"\x03", 1, kLead603 + "\r\n" + kQuiet},
        {std::string(300, 'a'), 1, row.substr(2) + mark + row + mark + row + mark + row.substr(64)},
        {"\x03", 1, kLead603 + "\r\n" + kQuiet},
        {"PRINT 12\b", 1, "PRINT 12" + std::string(8, '\b') + "\x1b[0JPRINT 1"},
        {"\x1b[C\x1b[1~\r", 1, "\r\n 1\r\n" + kQuiet},  // keys that it does without
        {"\x18", 1, "\x1b[0J"},                         // a stray CAN
        {"C\x92", 1, "C\b\x1b[0JRUN\r\n" + kLoud603},   // F2 as a raw byte
        {"\x1bOR", 1, "LIST\r\n" + kQuiet},             // F3
        {"AUTOSAVE\rDO:LOOP\r\x1a", 900, "AUTOSAVE\r\nDO:LOOP\r\nSaved 23 bytes\r\n" + kLoud603},
        {"RUN\r", 9, "RUN\r\n"},
        {"PRINT 5\r", 9, ""},
        {"\x03", 9, kLoud603},  // at once, and what waited is gone
        {"INPUT \"n\";a$\r", 9, "INPUT \"n\";a$\r\nn? "},
    });
}

TEST(Receive, KeptBytesAndEndCodes) {
    BoardBench bench;
    const std::pair<std::string, const char*> rows[] = {
        {"a\r\nb\nc\rd\x1a", "a\nb\nc\nd\n"},
        {"\na\r\r\rb\r\x1a", "a\n\n\nb\n"},  // one LF at the start is skipped
        {"a\tb\xc3\xa4\x01z\x1a", "a bz\n"},
        {"b\x03", ""},                              // Ctrl-C: all is gone
        {"b \xd1\x91\rPRINT 9\r", "b \n"},          // U+0451 ends in 0x91, which is F1
        {"PRINT 4;\r\x1aPRINT 5\r", "PRINT 4;\n"},  // what follows the end code is lost
        {"good\r" + std::string(255, 'x') + "\rlost\r\x1a", "good\n"},  // a line too long
    };
    for (const auto& [text, program] : rows) {
        bench.Say("AUTOSAVE\r" + text);
        EXPECT_EQ(bench.board.ProgramText(), program);
    }
    // U+2192 ends in 0x92, which is F2: saved and run.
    const std::string out = bench.Say("AUTOSAVE\rPRINT 7; ' \xe2\x86\x92");
    EXPECT_EQ(out.substr(out.find("Saved")), "Saved 26 bytes\r\n 7" + kLead603 + "\r\n" + kQuiet);
}

TEST(Receive, EchoComesAtCrAndElseIsHeld) {
    const std::string many(64, 'x');
    BoardBench().Follow({{"AUTOSAVE\r", 0, "AUTOSAVE\r\n"},
                         {"abc", 99, ""},
                         {"", 1, "abc"},
                         {"def\r", 0, "def\r\n"},
                         {"\nghi\n", 99, ""},  // LF alone is held
                         {"", 1, "ghi\n"},
                         {many, 0, many},
                         {"\r", 0, "\r\n"},
                         {"x\t\xe9y", 100, "x y"},  // a tab as one blank
                         {"\x1a", 449, ""},
                         {"", 1, "\r\nSaved 100 bytes\r\n" + kLoud603}});
}

constexpr int64_t kStamp = 1750500450;  // 21-06-2025 10:07:30

TEST(Listing, EachFamilysLayout) {
    const std::pair<const char*, const char*> rows[] = {
        {"picomite",
         "\nCHDIR \"dir\"|x=5|files -> A:/dir#   <DIR>  sub#"
         "00:00 00-00-1980          3  An, 1.txt#10:07 21-06-2025       1234  prog.bas#"
         "1 directory, 2 files, 13619200 bytes free#\nPRINT x ->  0#\n"
         "FILES \"p*.B?s\" -> A:/dir#10:07 21-06-2025       1234  prog.bas#"
         "0 directories, 1 file, 13619200 bytes free#\n"},
        {"cmm2", "\nls -> A:/#   <DIR>  dir#10:07 21-06-2025          7  b#1 directory, 1 file#\n"},
        {"armmite", "\nFILES \"*\" -> A:/#   <DIR>  dir#         7  b#1 directory, 1 file#\n"},
        {"maximite",
         "\nfiles -> dir             <DIR>#b                        7#1 directory, 1 file#\n"}};
    for (const auto& [family, script] : rows) {
        BoardBench bench(family);
        bench.board.AddFile("dir/sub/deep.bas", "", 0);
        bench.board.AddFile("dir/prog.bas", std::string(1234, 'x'), kStamp);
        bench.board.AddFile("dir/An, 1.txt", "abc", 0);
        bench.board.AddFile("b", std::string(7, 'x'), kStamp);
        bench.ExpectRows(script);
    }
}

TEST(Listing, PagesStopForOneRawByte) {
    BoardBench bench;
    const std::string pause = "PRESS ANY KEY ...", erase = "\r" + std::string(17, ' ') + "\r";
    std::string rows;
    for (int i = 101; i < 144; ++i) {
        bench.board.AddFile("f" + std::to_string(i), "x", kStamp);
        rows += "10:07 21-06-2025          1  f" + std::to_string(i) + "\r\n";
    }
    const size_t row = rows.size() / 43;
    bench.Follow(
        {{"FILES\r", 900, "FILES\r\nA:/\r\n" + rows.substr(0, 19 * row) + pause},
         {" ", 900, erase + rows.substr(19 * row, 21 * row) + pause},
         {"\r\n", 900,  // the LF is left for the prompt
          erase + rows.substr(40 * row) + "0 directories, 43 files, 13455360 bytes free\r\n" +
              kQuiet + "\r\n" + kQuiet},
         {"FILES\r", 900, "FILES\r\nA:/\r\n" + rows.substr(0, 19 * row) + pause},
         {"\x03", 900, kLead603 + "\r\n" + kQuiet}});  // no summary
}

// What the file manager does with slots is in its tests. The clock is set as the console does.
TEST(Commands, ClockFilesAndSlots) {
    BoardSetup setup;
    setup.sdCard = true;
    BoardBench bench("picomite", setup);
    bench.Say("AUTOSAVE\rPRINT 1\r\x1a");
    bench.Follow({{"flash save 1\r", 1499, "flash save 1\r\n"}, {"", 1, kQuiet}});
    bench.ExpectRows(R"(
Date$ = "31/12/2026"|Time$ = "23:59:58"|PRINT DATE$;" ";TIME$ -> 01-01-2027 00:00:00#
RTC SETTIME 27,02,28,07,08,09|DATE$="29-02-27" -> Error : Invalid date or time#
TIME$="24:00" -> Error : Invalid date or time#
PRINT DATE$;" ";TIME$ -> 28-02-2027 07:08:15#
FLASH SAVE 1 -> Error : Already programmed#
FLASH LOAD 3 -> Error : Flash slot empty#
FLASH ERASE 4 -> Error : 4 is invalid (valid is 1 to 3)#
MKDIR "games"|MKDIR "GAMES" -> Error : Entry already exists#
CHDIR "games"|SAVE "one"|CHDIR ".."|CHDIR ".." -> Error : Could not find the path#
NEW|SAVE "x" -> Error : Nothing to save#
FLASH RUN 1 ->  1#
NEW|LOAD "games\one"|RUN ->  1#
LOAD "games/one",R -> Error : Only a name is taken in the simulated board#
RUN "one" -> Error : Could not find the file#
RMDIR "games" -> Error : Dir is not empty#
DRIVE "b:"|MKDIR "x"|MKDIR "x" -> Error : Access denied due to prohibited access#
CHDIR "A:/games" -> Error : Only valid on current drive#
FILES "no/*" -> Error : Could not find the path#
KILL "a:/games/one.bas"|FILES "A:/games" -> A:/games#0 directories, 0 files, 13631488 bytes free#
)");
    EXPECT_FALSE(bench.board.AddFile("A:/big", std::string(13 * 1024 * 1024 + 1, 'x'), 0));
}

}  // namespace
