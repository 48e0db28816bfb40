// The prompt, the echo and the errors, byte for byte as the firmwares send them.
#include "tests/simulator/board_bench.h"

struct PromptRow {
    const char* family;
    const char* quiet;  // after an ordinary command
    const char* loud;   // after an error, printed at column 1
    const char* error;
};

const PromptRow kPrompts[] = {
    {"picomite", "> \x1b[?7h", "\x1b[?25h\x1b[97;40m> \x1b[?7h", "Error : Unknown command"},
    {"picomite-6.02", "> ", "\x1b[?25h\x1b[97;40m> ", "Error : Unknown command"},
    {"picomite-6.00", "> ", "\x1b[?25h> ", "Error : Unknown command"},
    {"cmm2", "> ", "\x1b[?25h\x1b[37m\x1b[m\r\n> ", "Unknown command"},
    {"armmite", "> ", "> ", "Error : Unknown command"},
    {"micromite", "> ", "> ", "Error: Unknown command"},
    {"command", "> ", "> ", "error: unknown command"},
};

TEST(Prompt, EachFirmwareHasItsOwnBytesAfterACommandAnErrorAndNew) {
    for (const PromptRow& row : kPrompts) {
        SCOPED_TRACE(row.family);
        BoardBench bench(row.family);
        const std::string quiet = row.quiet, loud = row.loud;
        const std::string end = bench.signOn.substr(bench.signOn.size() - 2 - quiet.size());
        EXPECT_EQ(end, "\r\n" + quiet);
        EXPECT_EQ(bench.Say("nosuch\r"), std::string("nosuch\r\n") + row.error + "\r\n" + loud);
        EXPECT_EQ(bench.Say("\r"), "\r\n" + quiet);
        if (row.family == std::string("command")) continue;
        EXPECT_EQ(bench.Say("PRINT 6*7\r"), "PRINT 6*7\r\n 42\r\n" + quiet);
        EXPECT_EQ(bench.Say("PRINT 1;\r"), "PRINT 1;\r\n 1\r\n" + quiet);
        EXPECT_EQ(bench.Say("NEW\r"), "NEW\r\n" + quiet);
    }
}
