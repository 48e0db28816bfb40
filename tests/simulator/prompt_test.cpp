// The prompt, the echo and the errors, byte for byte as the firmwares send them.
#include "tests/simulator/board_bench.h"

struct PromptRow {
    const char* family;
    const char* quiet;  // after an ordinary command
    std::string loud;   // after an error, printed at column 1
    const char* error;
};

const PromptRow kPrompts[] = {
    {"picomite", "> \x1b[?7h", "\x1b[?25h\x1b[97;40m> \x1b[?7h", "Error : Unknown command"},
    {"picomite-6.02", "> ", "\x1b[?25h\x1b[97;40m> ", "Error : Unknown command"},
    {"picomite-6.00", "> ", "\x1b[?25h> ", "Error : Unknown command"},
    {"cmm2", "> ", kLoudCmm2, "Unknown command"},
    {"armmite", "> ", "> ", "Error : Unknown command"},
    {"micromite", "> ", "> ", "Error: Unknown command"},
    {"command", "> ", "> ", "error: unknown command"},
};

TEST(Prompt, EachFirmwareHasItsOwnBytesAfterACommandAnErrorAndNew) {
    for (const PromptRow& row : kPrompts) {
        SCOPED_TRACE(row.family);
        BoardBench bench(row.family);
        const std::string quiet = row.quiet, loud = row.loud;
        const std::string startUp = row.family == std::string("armmite") ? "\x1b[?1000l" : "";
        const std::string end = "\r\n\r\n" + startUp + quiet;
        EXPECT_EQ(bench.signOn.substr(bench.signOn.size() - end.size()), end);
        EXPECT_EQ(bench.Say("nosuch\r"), std::string("nosuch\r\n") + row.error + "\r\n" + loud);
        EXPECT_EQ(bench.Type(""), quiet);
        if (row.family == std::string("command")) continue;
        EXPECT_EQ(bench.Type("PRINT 6*7"), " 42\r\n" + quiet);
        EXPECT_EQ(bench.Type("PRINT 1;"), " 1\r\n" + quiet);
        EXPECT_EQ(bench.Type("NEW"), quiet);
    }
}

TEST(Prompt, LineEndsEchoAndWrapMarks) {
    BoardBench bench;
    EXPECT_EQ(bench.signOn.rfind("\rPicoMite MMBasic RP2350A V6.03.00RC25\r\n", 0), 0u);
    // CR LF is two line ends: the LF brings an empty line and its prompt.
    EXPECT_EQ(bench.Say("x=1\r\n"), "x=1\r\n" + kQuiet + "\r\n" + kQuiet);
    // Only 0x20 to 0x7e are typed; a tab goes to a multiple of two columns.
    EXPECT_EQ(bench.Say("a\xc3\xa9\x01"
                        "b\tc\t"),
              "ab  c ");
    bench.Say("\x03");
    const std::string typed(300, 'a');
    const std::string echo = bench.Say(typed);
    std::string expected = typed.substr(0, 78) + " \b" + typed.substr(0, 80) + " \b" +
                           typed.substr(0, 80) + " \b" + typed.substr(0, 254 - 238);
    EXPECT_EQ(echo, expected);
    // A line may hold several statements, and a comment.
    bench.Say("\x03");
    EXPECT_EQ(bench.Type("a=2:PRINT a;:PRINT \"it's\" ' note"), " 2it's\r\n" + kQuiet);
}

TEST(Prompt, EditingByKeysAndControlBytes) {
    BoardBench bench;
    const auto erased = [](size_t back, const std::string& line, size_t ahead) {
        return std::string(back, '\b') + "\x1b[0J" + line + std::string(ahead, '\b');
    };
    EXPECT_EQ(bench.Say("PRINT 12\b"), "PRINT 12" + erased(8, "PRINT 1", 0));
    EXPECT_EQ(bench.Say("\x13"), "\b");                     // left
    EXPECT_EQ(bench.Say("9"), erased(6, "PRINT 91", 1));    // inserts
    EXPECT_EQ(bench.Say("\x7f"), erased(7, "PRINT 9", 0));  // deletes to the right
    EXPECT_EQ(bench.Say("\x15"), std::string(7, '\b'));     // NAK is "home"
    EXPECT_EQ(bench.Say("\x04\x1b[C\x0b"), "PRINT 9");      // right, right, end
    EXPECT_EQ(bench.Type(""), " 9\r\n" + kQuiet);
    EXPECT_EQ(bench.Say("\x18"), "\x1b[0J");                       // a stray CAN
    EXPECT_EQ(bench.Say("C\x05"), "C" + erased(1, "PRINT 9", 0));  // up: the last command
    EXPECT_EQ(bench.Say("\x1b[B"), erased(7, "", 0));              // down
    EXPECT_EQ(bench.Say("\x92"), "RUN\r\n" + kLoud603);            // F2 as a raw byte
    EXPECT_EQ(bench.Say("\x1bOR").substr(0, 6), "LIST\r\n");       // F3
    // A lone ESC holds what follows for 30 ms; then it was nothing, and the rest is text.
    EXPECT_EQ(bench.Say("\x1b[1", 29), "");
    EXPECT_EQ(bench.Wait(2), "[1");
    EXPECT_EQ(bench.Say("\x1bz"), "z");
    // The old boards rub out plainly and know none of these keys.
    BoardBench old("micromite");
    EXPECT_EQ(old.Say("ab\b\x15\x18"), "ab\b \b");
}

TEST(Prompt, CtrlCActsAtItsReceptionAndEmptiesTheInput) {
    BoardBench bench;
    // It leaves the editor too; the editor's F2 runs the program.
    const std::string clear = "\x1b[2J\x1b[H";
    bench.Say("AUTOSAVE\rprint 8\r\x1a");
    EXPECT_EQ(bench.Say("\x1bOS").substr(0, 22), "EDIT\r\n" + clear + "Print 8\r\n");
    EXPECT_EQ(bench.Say("\x03"), clear + kLoud603);
    bench.Say("EDIT\r");
    EXPECT_EQ(bench.Say("\x92"), clear + " 8\r\n" + kLoud603);
    EXPECT_EQ(bench.Say("PRI\x03"), "PRI\x1b[?25h\x1b[97;40m\r\n" + kQuiet);
    bench.Say("AUTOSAVE\rDO:LOOP\r\x1a");
    EXPECT_EQ(bench.Type("RUN", 500), "");
    EXPECT_EQ(bench.Say("PRINT 5\r", 500), "");  // waits in the ring, and is thrown away
    EXPECT_EQ(bench.Say("\x03"), kLoud603);
    BoardBench cmm2("cmm2");
    EXPECT_EQ(cmm2.Say("\x03"), kLoudCmm2);
}

TEST(Prompt, ErrorsInAProgramTellTheLineInEachFamilysWay) {
    const std::string program = "a=1\rPRINT \"x\"; nosuch(1)\r";
    BoardBench bench;
    EXPECT_EQ(bench.RunText(program),
              "x\r\n[2] Print \"x\"; nosuch(1)\r\nError : NOSUCH is not declared\r\n");
    // 200 ms pass before the plain PicoMite prints it.
    bench.Say("nosuch\r", 199);
    EXPECT_EQ(bench.Wait(1).substr(0, 8), "Error : ");
    // A message is cut to 63 characters.
    bench.Wait(300);
    EXPECT_EQ(bench.Say("PRINT " + std::string(70, 'x') + "(1)\r").substr(83, 74),
              "Error : " + std::string(63, 'X') + "\r\n\x1b");
    BoardBench cmm2("cmm2");
    cmm2.Say("AUTOSAVE \"t\"\r" + program);
    EXPECT_EQ(
        cmm2.Say("\x1b[12~"),
        "\r\n> Saved to SDcard\r\nx\r\nError in line 2: NOSUCH is not declared\r\n" + kLoudCmm2);
    EXPECT_EQ(cmm2.Type("print \"a"), "Unterminated string\r\n" + kLoudCmm2);
}

TEST(Prompt, ShortFormsAndAPromptOfTheProgramsOwn) {
    BoardSetup setup;
    setup.sdCard = true;
    BoardBench bench("picomite", setup);
    bench.board.AddFile("hi.bas", "PRINT \"hi\"\n", 0);
    EXPECT_EQ(bench.Type("*hi"), "hi\r\n" + kLoud603);
    EXPECT_EQ(bench.Type("B:"), kQuiet);
    EXPECT_EQ(bench.Type("PRINT CWD$"), "B:/\r\n" + kQuiet);
    const std::string loud = "\x1b[?25h\x1b[97;40m";
    bench.Say("AUTOSAVE\rSUB MM.PROMPT\rPRINT \"ready \";\rEND SUB\r");
    EXPECT_EQ(bench.Say("\x1a"), "Saved 51 bytes\r\n" + loud + "ready ");
    EXPECT_EQ(bench.Type("PRINT 1"), " 1\r\nready ");
    // One that fails gives way to the plain prompt.
    bench.Say("AUTOSAVE\rSUB MM.PROMPT\rnosuch\rEND SUB\r\x1a");
    EXPECT_EQ(bench.Type("PRINT 1"), " 1\r\n" + kQuiet);
}

TEST(Prompt, ARestartTakesAUsbPortAwayAndPrintsNoSignOn) {
    BoardBench bench;
    EXPECT_EQ(bench.Type("CPU RESTART", 100), "");
    EXPECT_FALSE(bench.board.LinkIsUp());
    EXPECT_EQ(bench.Say("PRINT 1\r", 1390), "");
    EXPECT_FALSE(bench.board.LinkIsUp());
    EXPECT_EQ(bench.Wait(20), kQuiet);
    EXPECT_TRUE(bench.board.LinkIsUp());
    // What is printed while nobody listens (DTR) is gone.
    bench.board.SetListening(false);
    EXPECT_EQ(bench.Say("PRINT 1\r"), "");
    bench.board.SetListening(true);
    EXPECT_EQ(bench.Type(""), kQuiet);
}
