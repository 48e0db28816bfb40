// The prompt, the echo, the errors and the PIN, byte for byte as the firmwares send them.
#include "tests/simulator/board_bench.h"

namespace {

const struct {
    const char* family;
    const char* quiet;  // after an ordinary command
    std::string loud;   // after an error, printed at column 1
    const char* error;
} kPrompts[] = {
    {"picomite", "> \x1b[?7h", "\x1b[?25h\x1b[97;40m> \x1b[?7h", "Error : Unknown command"},
    {"picomite-6.00", "> ", "\x1b[?25h> ", "Error : Unknown command"},
    {"cmm2", "> ", kLoudCmm2, "Unknown command"},
    {"armmite", "> ", "> ", "Error : Unknown command"},
    {"micromite+", "> ", "> ", "Error: Unknown command"},
};

TEST(Prompt, EachFirmwareHasItsOwnBytesAfterACommandAnErrorAndNew) {
    for (const auto& row : kPrompts) {
        SCOPED_TRACE(row.family);
        BoardBench bench(row.family);
        const std::string quiet = row.quiet, loud = row.loud;
        const std::string startUp = row.family == std::string("armmite") ? "\x1b[?1000l" : "";
        const std::string end = "\r\n\r\n" + startUp + quiet;
        EXPECT_EQ(bench.signOn.substr(bench.signOn.size() - end.size()), end);
        EXPECT_EQ(bench.Say("nosuch\r"), std::string("nosuch\r\n") + row.error + "\r\n" + loud);
        EXPECT_EQ(bench.Type("PRINT 6*7"), " 42\r\n" + quiet);
        EXPECT_EQ(bench.Type("NEW"), quiet);
    }
}

TEST(Prompt, LineEndsEchoAndWrapMarks) {
    BoardBench bench;
    EXPECT_EQ(bench.signOn.rfind("\rPicoMite MMBasic RP2350A V6.03.00RC25\r\n", 0), 0u);
    bench.board.SetListening(false);  // what is printed for nobody is lost
    EXPECT_EQ(bench.Say("PRINT 1\r"), "");
    bench.board.SetListening(true);
    // CR LF is two line ends: the LF brings an empty line and its prompt.
    EXPECT_EQ(bench.Say("x=1\r\n"), "x=1\r\n" + kQuiet + "\r\n" + kQuiet);
    // Only 0x20 to 0x7e are typed; a tab goes to a multiple of two columns.
    EXPECT_EQ(bench.Say(std::string("a\xc3\xa9\x01") + "b\tc\t"), "ab  c ");
    bench.Say("\x03");
    const std::string row(80, 'a'), mark = " \b";
    EXPECT_EQ(bench.Say(std::string(300, 'a')),
              row.substr(2) + mark + row + mark + row + mark + row.substr(64));
    bench.Say("\x03");
    EXPECT_EQ(bench.Type("PRINT \"ab\";CHR$(8);CHR$(8);"), "ab\b\b" + kQuiet);  // at column 1
}

TEST(Prompt, KeysAndControlBytes) {
    BoardBench().Follow({
        {"PRINT 12\b", 1, "PRINT 12" + std::string(8, '\b') + "\x1b[0JPRINT 1"},
        {"\x1b[C\x1b[1~\r", 1, "\r\n 1\r\n" + kQuiet},  // keys that it does without
        {"\x18", 1, "\x1b[0J"},                         // a stray CAN
        {"C\x92", 1, "C\b\x1b[0JRUN\r\n" + kLoud603},   // F2 as a raw byte
        {"\x1bOR", 1, "LIST\r\n" + kQuiet},             // F3
    });
}

TEST(Prompt, CtrlCActsAtItsReceptionAndEmptiesTheInput) {
    BoardBench bench;
    EXPECT_EQ(bench.Say("PRI\x03"), "PRI" + kLead603 + "\r\n" + kQuiet);
    bench.Say("AUTOSAVE\rDO:LOOP\r\x1aRUN\r");
    bench.Follow({{"RUN\r", 9, "RUN\r\n"}, {"PRINT 5\r", 9, ""}, {"\x03", 9, kLoud603}});
}

TEST(Pin, ThreeSecondsOfSilenceStandBeforeEachAnswer) {
    const std::string question = "Enter PIN or 0 to restart: ";
    BoardSetup setup;
    setup.pin = 4321;
    BoardBench bench("picomite", setup);
    bench.Follow({{"\x03", 0, kLead603 + "\r\n" + question},
                  {"11x\b1\r\n", 2999, "11x\b \b1\r\n"},  // the LF is skipped
                  {"", 1, question},
                  {"4321\r", 10, "4321\r\n"},
                  {"PRINT 8\r", 2989, ""},  // what is typed in the silence waits
                  {"", 1, kQuiet + "PRINT 8\r\n 8\r\n" + kQuiet}});  // asked once only
}

}  // namespace
