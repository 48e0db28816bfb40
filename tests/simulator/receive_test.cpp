// AUTOSAVE and AUTO: what ends them, what is kept, what is echoed and when.
#include "tests/simulator/board_bench.h"

namespace {

const std::string kSaved = "\r\nSaved ";

// Uploads, and gives the program in memory with "|" for its line ends.
std::string Stored(BoardBench& bench, const std::string& text) {
    bench.Say("AUTOSAVE\r");
    bench.Say(text);
    std::string program = bench.board.ProgramText();
    for (char& c : program) {
        if (c == '\n') c = '|';
    }
    return program;
}

}  // namespace

TEST(Receive, TranscriptOfFirmware603) {
    BoardBench bench;
    EXPECT_EQ(bench.Type("AUTOSAVE"), "");
    EXPECT_EQ(bench.Say("PRINT 1\rPRINT 2"), "PRINT 1\r\nPRINT 2");
    EXPECT_EQ(bench.Say("\x1a", 449), "");
    EXPECT_EQ(bench.Wait(1), kSaved + "28 bytes\r\n" + kLoud603);
    EXPECT_EQ(bench.board.ProgramText(), "PRINT 1\nPRINT 2\n");
}

TEST(Receive, KeptBytesAndLineEnds) {
    BoardBench bench;
    EXPECT_EQ(Stored(bench, "a\r\nb\nc\rd\x1a"), "a|b|c|d|");
    EXPECT_EQ(Stored(bench, "\na\r\r\rb\r\x1a"), "a|||b|");  // one LF at the start is skipped
    EXPECT_EQ(Stored(bench, "\r\na\r\r\x1a"), "|a|");        // of two empty ends one is kept
    EXPECT_EQ(Stored(bench, "a\tb\xc3\xa4\x01z\x1a"), "a bz|");
    bench.Say("AUTOSAVE\r");
    EXPECT_EQ(bench.Say("x\t\xe9y\r"), "x y\r\n");  // a tab is echoed as one blank
    bench.Say("\x03");
    EXPECT_EQ(Stored(bench, "a\x1a") + Stored(bench, "b\x03"), "a|");  // Ctrl-C: all is gone
    bench.Say("AUTOSAVE\rone\r\x1a");
    bench.Say("AUTOSAVE APPEND\rtwo\r\x1a");
    EXPECT_EQ(bench.board.ProgramText(), "one\ntwo\n");
    bench.Say("AUTOSAVE C\r  x = 1 ' note\r\r' gone\rPRINT \"it's\"\r\x1a");
    EXPECT_EQ(bench.board.ProgramText(), "x = 1\nPRINT \"it's\"\n");
}

TEST(Receive, EndCodesThatHideInTheText) {
    // U+2192 ends in 0x92, which is F2: saved and run; U+0451 ends in 0x91, F1: saved.
    BoardBench bench;
    bench.Say("AUTOSAVE\r");
    const std::string out = bench.Say("PRINT 7 ' \xe2\x86\x92");
    EXPECT_EQ(out.substr(out.find("Saved")), "Saved 25 bytes\r\n 7\r\n" + kLoud603);
    EXPECT_EQ(Stored(bench, "b \xd1\x91\rPRINT 9\r"), "b |");
    EXPECT_EQ(Stored(bench, "c\x1b[12~PRINT 1"), "c|");
    // What follows the end code at once is lost; the next command runs.
    bench.Say("AUTOSAVE\rd\r\x1aPRINT 5\r");
    EXPECT_EQ(bench.Type("PRINT 6"), " 6\r\n" + kQuiet);
}

TEST(Receive, EchoComesAtCrAndElseIsHeld) {
    BoardBench bench;
    bench.Say("AUTOSAVE\r");
    EXPECT_EQ(bench.Say("abc", 99), "");
    EXPECT_EQ(bench.Wait(1), "abc");
    EXPECT_EQ(bench.Type("def", 0), "");
    EXPECT_EQ(bench.Say("\nghi\n", 99), "");  // LF behind CR is nothing, LF alone is held
    EXPECT_EQ(bench.Wait(1), "ghi\n");
    EXPECT_EQ(bench.Say(std::string(64, 'x'), 0), std::string(64, 'x'));
    // AUTOSAVE N is silent up to the first pause; from then on it echoes.
    bench.Say("\x1a");
    EXPECT_EQ(bench.Say("AUTOSAVE N\rabc\rd", 99), "AUTOSAVE N\r\n");
    EXPECT_EQ(bench.Wait(1), "Enter ctrl-Z, F1, or F2 to exit\r\n");
    EXPECT_EQ(bench.Type("ef", 0), "");
    bench.Say("\x1a");
    EXPECT_EQ(bench.board.ProgramText(), "abc\ndef\n");
    BoardBench older("picomite-6.02");
    EXPECT_EQ(older.Say("AUTOSAVE N\r").substr(12, 14), "Error : Syntax");
}

TEST(Receive, TooMuchBringsAnErrorAndTheRestIsTakenForCommands) {
    BoardBench bench;
    // A line of 255 characters: what stood before it is stored.
    bench.Say("AUTOSAVE\rgood\r" + std::string(255, 'x') + "\rlost\r");
    EXPECT_EQ(bench.Say("\x1a"), "Error : Not enough memory\r\n" + kLoud603);
    EXPECT_EQ(bench.board.ProgramText(), "good\n");
    std::string huge = "AUTOSAVE\r";
    while (huge.size() <= 122880 + 12) huge += "PRINT 123456789\r";
    bench.Say(huge.substr(0, huge.size() - 16));
    const std::string out = bench.Say("PRINT 1\rPRINT 2\r");
    EXPECT_TRUE(Has(out, "Error : Not enough memory\r\n" + kLoud603));
    EXPECT_TRUE(Has(out, "PRINT 2\r\n 2\r\n"));
}

TEST(Receive, EachOlderFamilyHasItsOwnEndCode) {
    BoardBench micromite("micromite");
    EXPECT_EQ(micromite.Say("AUTOSAVE\r\nab\xc1\r\n", 0), "AUTOSAVE\r\nabA\r\n");  // 7 bits
    EXPECT_EQ(micromite.Say("x\x12\x1a"), "x" + kSaved + "24 bytes\r\n> ");
    EXPECT_EQ(micromite.board.ProgramText(), "abA\nx\n");

    BoardBench pi("pi-cromite");
    EXPECT_EQ(pi.Say("AUTOSAVE\rx=1\r\x1a\r\x03"), "AUTOSAVE\r\nx=1\r\n\r\nSaved 21 bytes\r\n> ");

    BoardBench maximite("maximite");
    EXPECT_EQ(maximite.Say("AUTO\rPRINT 3\r\x03"), "AUTO\r\nPRINT 3\r\n> ");
    EXPECT_EQ(maximite.Type("RUN"), " 3\r\n> ");
}

TEST(Receive, TheCmm2WantsANameAndAFunctionKey) {
    BoardBench bench("cmm2");
    const std::string loud = kLoudCmm2;
    EXPECT_EQ(bench.Type("AUTOSAVE"), "Syntax\r\n" + loud);
    bench.Say("AUTOSAVE \"x\"\rprint 1\r\x1a\rprint 2\r");
    EXPECT_EQ(bench.Say("\x1b[17~"), "\r\n> Saved to SDcard\r\n" + loud);  // F6: only saved
    std::string data;
    ASSERT_TRUE(bench.board.ReadFile("X.BAS", &data));
    EXPECT_EQ(data, "print 1\r\n\r\nprint 2\r\n");
    EXPECT_EQ(bench.board.ProgramText(), "");
    bench.Say("autosave \"x.bas\"\rprint 3\r\x1b[11~");  // F1: loaded too
    EXPECT_EQ(bench.board.ProgramText(), "print 3\n");
    bench.Say("AUTOSAVE N \"y\"\rprint 4\r", 99);
    EXPECT_EQ(bench.Wait(1), "Enter F1 ,F2 or F6 to exit\r\n");
    EXPECT_EQ(bench.Say("\x1bOQ"), "\r\n> Saved to SDcard\r\n 4\r\n" + loud);  // F2: and run
    EXPECT_EQ(bench.Type("LIST"), "print 4\r\n" + loud);                       // as the file stands
}

TEST(Receive, NewRunLoadAndSave) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rPRINT \"one\"\r\x1a");
    EXPECT_EQ(bench.Type("SAVE \"a\""), kQuiet);
    EXPECT_EQ(bench.Type("NEW", 349), "");
    EXPECT_EQ(bench.Wait(1), kQuiet);
    EXPECT_EQ(bench.Type("RUN"), kLoud603);
    EXPECT_EQ(bench.Type("RUN \"a\""), "one\r\n" + kLoud603);
    EXPECT_EQ(bench.Type("LOAD \"a\",R"), "one\r\n" + kLoud603);
    EXPECT_EQ(bench.Type("LOAD \"b\""), "Error : Could not find the file\r\n" + kLoud603);
    // The column is left anywhere: a line end goes before the prompt, behind the sequences.
    EXPECT_EQ(Stored(bench, "PRINT 5;\r\x1a"), "PRINT 5;|");
    EXPECT_EQ(bench.Type("RUN"), " 5\x1b[?25h\x1b[97;40m\r\n" + kQuiet);
}
