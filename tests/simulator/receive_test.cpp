// AUTOSAVE and AUTO: what ends them, what is kept, what is echoed and when.
#include <algorithm>

#include "tests/simulator/board_bench.h"

namespace {

// Uploads, and gives the program in memory with "|" for its line ends.
std::string Stored(BoardBench& bench, const std::string& text) {
    bench.Say("AUTOSAVE\r");
    bench.Say(text);
    std::string program = bench.board.ProgramText();
    std::replace(program.begin(), program.end(), '\n', '|');
    return program;
}

TEST(Receive, KeptBytesAndLineEnds) {
    BoardBench bench;
    bench.Follow({{"AUTOSAVE\r", 10, "AUTOSAVE\r\n"},
                  {"PRINT 1\rPRINT 2", 110, "PRINT 1\r\nPRINT 2"},
                  {"\x1a", 449, ""},
                  {"", 1, "\r\nSaved 28 bytes\r\n" + kLoud603}});
    EXPECT_EQ(Stored(bench, "a\r\nb\nc\rd\x1a"), "a|b|c|d|");
    EXPECT_EQ(Stored(bench, "\na\r\r\rb\r\x1a"), "a|||b|");  // one LF at the start is skipped
    EXPECT_EQ(Stored(bench, "a\tb\xc3\xa4\x01z\x1a"), "a bz|");
    EXPECT_EQ(Stored(bench, "b\x03"), "");  // Ctrl-C: all is gone
}

TEST(Receive, EndCodesThatHideInTheText) {
    // U+2192 ends in 0x92, which is F2: saved and run; U+0451 ends in 0x91, F1: saved.
    BoardBench bench;
    bench.Say("AUTOSAVE\r");
    const std::string out = bench.Say("PRINT 7 ' \xe2\x86\x92");
    EXPECT_EQ(out.substr(out.find("Saved")), "Saved 25 bytes\r\n 7\r\n" + kLoud603);
    EXPECT_EQ(Stored(bench, "b \xd1\x91\rPRINT 9\r"), "b |");
    // What follows the end code at once is lost; the next command runs.
    bench.Say("AUTOSAVE\rPRINT 4;\r\x1aPRINT 5\r");
    EXPECT_EQ(bench.Type("RUN"), " 4" + kLead603 + "\r\n" + kQuiet);
}

TEST(Receive, EchoComesAtCrAndElseIsHeld) {
    BoardBench bench;
    const std::string many(64, 'x');
    bench.Say("AUTOSAVE\r");
    bench.Follow({{"abc", 99, ""}, {"", 1, "abc"}, {"def\r", 0, "def\r\n"}});
    bench.Follow({{"\nghi\n", 99, ""}, {"", 1, "ghi\n"}, {many, 0, many}});  // LF alone is held
    bench.Follow({{"\r", 0, "\r\n"}, {"x\t\xe9y\r", 0, "x y\r\n"}});         // a tab as one blank
}

TEST(Receive, TooMuchBringsAnErrorAndTheRestIsTakenForCommands) {
    BoardBench bench;
    // A line of 255 characters: what stood before it is stored.
    EXPECT_EQ(Stored(bench, "good\r" + std::string(255, 'x') + "\rlost\r\x1a"), "good|");
    const std::string out = bench.Say("AUTOSAVE\r" + std::string(122881, 'x') + "\rPRINT 2\r");
    EXPECT_TRUE(Has(out, "Error : Not enough memory\r\n" + kLoud603));
    EXPECT_TRUE(Has(out, "PRINT 2\r\n 2\r\n"));
}

TEST(Receive, TheCmm2WantsANameAndAFunctionKey) {
    BoardBench bench("cmm2");
    const std::string saved = "\r\n> Saved to SDcard\r\n";
    EXPECT_EQ(bench.Type("AUTOSAVE"), "Syntax\r\n" + kLoudCmm2);
    bench.Say("AUTOSAVE \"x\"\rprint 1\r\x1a\rprint 2\r");
    EXPECT_EQ(bench.Say("\x1b[11~"), saved + kLoudCmm2);  // F1: saved and loaded
    std::string data;
    EXPECT_TRUE(bench.board.ReadFile("X.BAS", &data));
    EXPECT_EQ(data, "print 1\r\n\r\nprint 2\r\n");
    EXPECT_EQ(bench.board.ProgramText(), "print 1\n\nprint 2\n");
}

}  // namespace
