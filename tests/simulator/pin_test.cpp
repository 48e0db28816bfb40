// The PIN dialogue with its silences.
#include "tests/simulator/board_bench.h"

namespace {

const std::string kQuestion = "Enter PIN or 0 to restart: ";

BoardSetup WithPin(int pin) {
    BoardSetup setup;
    setup.pin = pin;
    return setup;
}

}  // namespace

TEST(Pin, ThreeSecondsOfSilenceStandBeforeEachAnswer) {
    BoardBench bench("picomite", WithPin(4321));
    EXPECT_EQ(bench.signOn.substr(bench.signOn.size() - 2 - kQuestion.size()), "\r\n" + kQuestion);
    EXPECT_EQ(bench.Say("\r", 0), "\r\n" + kQuestion);  // an empty answer: at once
    EXPECT_EQ(bench.Say("\x03", 0), "\x1b[?25h\x1b[97;40m\r\n" + kQuestion);
    EXPECT_EQ(bench.Say("11x\b1\r\n", 0), "11x\b \b1\r\n");  // the LF is skipped
    EXPECT_EQ(bench.Wait(2999), "");
    EXPECT_EQ(bench.Wait(1), kQuestion);
    // What is typed in the silence waits.
    EXPECT_EQ(bench.Say("4321\r", 10), "4321\r\n");
    EXPECT_EQ(bench.Say("PRINT 8\r", 2989), "");
    EXPECT_EQ(bench.Wait(1), "> " + kTail603 + "PRINT 8\r\n 8\r\n> " + kTail603);
    // Asked once only since the reset.
    EXPECT_EQ(bench.Say("\x03"), "\x1b[?25h\x1b[97;40m\r\n> " + kTail603);
}

TEST(Pin, AWrongAnswerZeroAndTheLockForGood) {
    BoardBench bench("picomite", WithPin(4321));
    // 0, or what is no number, restarts: the port goes, and the question comes back.
    for (const char* answer : {"0\r", "abc\r"}) {
        EXPECT_EQ(bench.Say(answer, 2999), answer + std::string("\n"));
        EXPECT_TRUE(bench.board.LinkIsUp());
        EXPECT_EQ(bench.Wait(1), "");
        EXPECT_FALSE(bench.board.LinkIsUp());
        EXPECT_EQ(bench.Wait(1500), kQuestion);
    }
    BoardBench cmm2("cmm2", WithPin(7));
    EXPECT_EQ(cmm2.Say("8\r", 49), "8\r\n");
    EXPECT_EQ(cmm2.Wait(1), kQuestion);
    BoardBench locked("picomite", WithPin(99999999));
    const std::string words = "Console locked, press enter to restart: ";
    EXPECT_NE(locked.signOn.find(words), std::string::npos);
    EXPECT_EQ(locked.Say("99999999\r", 1499), "99999999\r\n");
    EXPECT_EQ(locked.Wait(1), words);
    // Set at the prompt it holds from the next start on, and isn't listed.
    BoardBench later;
    EXPECT_EQ(later.Say("OPTION PIN 55\r"), "OPTION PIN 55\r\n> " + kTail603);
    EXPECT_EQ(later.Say("OPTION LIST\r").find("55\r"), std::string::npos);
    EXPECT_EQ(later.Say("CPU RESTART\r"), "CPU RESTART\r\n" + kQuestion);
}
