// The prompt, the echo, the errors, the PIN and the receiving of programs, byte for byte and
// at their times.
#include <algorithm>

#include "tests/simulator/board_bench.h"

namespace {

TEST(Console, EachFirmwareHasItsOwnPrompts) {
    const struct {
        const char *family, *startUp, *quiet;  // at power-up, and after an ordinary command
        std::string loud;                      // after an error, printed at column 1
        const char* error;
    } rows[] = {
        {"picomite", "", "> \x1b[?7h", "\x1b[?25h\x1b[97;40m> \x1b[?7h", "Error : Unknown command"},
        {"picomite-6.00", "", "> ", kLoud600, "Error : Unknown command"},
        {"cmm2", "", "> ", kLoudCmm2, "Unknown command"},
        {"armmite", "\x1b[?1000l", "> ", "> ", "Error : Unknown command"},
        {"micromite+", "", "> ", "> ", "Error: Unknown command"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.family);
        BoardBench bench(row.family);
        const std::string quiet = row.quiet, end = std::string("\r\n\r\n") + row.startUp + quiet;
        EXPECT_EQ(bench.signOn.substr(bench.signOn.size() - end.size()), end);
        bench.Follow({{"nosuch\r", 900, std::string("nosuch\r\n") + row.error + "\r\n" + row.loud},
                      {"PRINT 6*7\r", 900, "PRINT 6*7\r\n 42\r\n" + quiet},
                      {"NEW\r", 900, "NEW\r\n" + quiet}});
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
        {"a\xc3\xa9\x01"
         "b\tc\t",
         1, "ab  c "},  // 0x20 to 0x7e; a tab to a multiple of two
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
    });
}

TEST(Console, ThreeSecondsOfSilenceStandBeforeEachAnswerToThePin) {
    const std::string question = "Enter PIN or 0 to restart: ";
    BoardSetup setup;
    setup.pin = 4321;
    BoardBench("picomite", setup)
        .Follow({{"\x03", 0, kLead603 + "\r\n" + question},
                 {"11x\b1\r\n", 2999, "11x\b \b1\r\n"},  // the LF is skipped
                 {"", 1, question},
                 {"4321\r", 10, "4321\r\n"},
                 {"PRINT 8\r", 2989, ""},  // what is typed in the silence waits
                 {"", 1, kQuiet + "PRINT 8\r\n 8\r\n" + kQuiet}});  // asked once only
}

// Uploads, and gives the program in memory with "|" for its line ends.
std::string Stored(BoardBench& bench, const std::string& text) {
    bench.Say("AUTOSAVE\r" + text);
    std::string program = bench.board.ProgramText();
    std::replace(program.begin(), program.end(), '\n', '|');
    return program;
}

TEST(Receive, KeptBytesAndEndCodes) {
    BoardBench bench;
    const std::pair<std::string, const char*> rows[] = {
        {"a\r\nb\nc\rd\x1a", "a|b|c|d|"},
        {"\na\r\r\rb\r\x1a", "a|||b|"},  // one LF at the start is skipped
        {"a\tb\xc3\xa4\x01z\x1a", "a bz|"},
        {"b\x03", ""},                             // Ctrl-C: all is gone
        {"b \xd1\x91\rPRINT 9\r", "b |"},          // U+0451 ends in 0x91, which is F1
        {"PRINT 4;\r\x1aPRINT 5\r", "PRINT 4;|"},  // what follows the end code is lost
        {"good\r" + std::string(255, 'x') + "\rlost\r\x1a", "good|"},  // a line too long
    };
    for (const auto& [text, program] : rows) EXPECT_EQ(Stored(bench, text), program);
    // U+2192 ends in 0x92, which is F2: saved and run.
    const std::string out = bench.Say("AUTOSAVE\rPRINT 7; ' \xe2\x86\x92");
    EXPECT_EQ(out.substr(out.find("Saved")), "Saved 26 bytes\r\n 7" + kLead603 + "\r\n" + kQuiet);
    // Behind an error the rest is taken for commands.
    const std::string end = bench.Say("AUTOSAVE\r" + std::string(122881, 'x') + "\rPRINT 2\r");
    EXPECT_TRUE(Has(
        end, "Error : Not enough memory\r\n" + kLoud603 + "\r\n" + kQuiet + "PRINT 2\r\n 2\r\n"));
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

TEST(Receive, TheCmm2WantsANameAndAFunctionKey) {
    BoardBench bench("cmm2");
    std::string data;
    EXPECT_EQ(bench.Told("AUTOSAVE"), "Syntax#");
    bench.Say("AUTOSAVE \"x\"\rprint 1\r\x1a\rprint 2\r");
    EXPECT_EQ(bench.Say("\x1b[11~"), "\r\n> Saved to SDcard\r\n" + kLoudCmm2);
    EXPECT_TRUE(bench.board.ReadFile("X.BAS", &data));
    EXPECT_EQ(data, "print 1\r\n\r\nprint 2\r\n");
    EXPECT_EQ(bench.Say("LIST\r"), "LIST\r\nprint 1\r\n\r\nprint 2\r\n" + kLoudCmm2);
    EXPECT_TRUE(Has(bench.Say("LS\r"), "0 directories, 1 file\r\n" + kLoudCmm2));
}

}  // namespace
