// The PIN dialogue with its silences.
#include "tests/simulator/board_bench.h"

namespace {

const std::string kQuestion = "Enter PIN or 0 to restart: ";

struct LockedBench : BoardBench {
    explicit LockedBench(int pin, const char* family = "picomite")
        : BoardBench(family, [pin] {
              BoardSetup setup;
              setup.pin = pin;
              return setup;
          }()) {}
};

}  // namespace

TEST(Pin, ThreeSecondsOfSilenceStandBeforeEachAnswer) {
    LockedBench bench(4321);
    EXPECT_EQ(bench.signOn.substr(bench.signOn.size() - 2 - kQuestion.size()), "\r\n" + kQuestion);
    bench.Follow({{"\r", 0, "\r\n" + kQuestion},  // an empty answer: at once
                  {"\x03", 0, kLead603 + "\r\n" + kQuestion},
                  {"11x\b1\r\n", 0, "11x\b \b1\r\n"},  // the LF is skipped
                  {"", 2999, ""},
                  {"", 1, kQuestion},
                  {"4321\r", 10, "4321\r\n"},
                  {"PRINT 8\r", 2989, ""},  // what is typed in the silence waits
                  {"", 1, kQuiet + "PRINT 8\r\n 8\r\n" + kQuiet},
                  {"\x03", 10, kLead603 + "\r\n" + kQuiet}});  // asked once only since the reset
}

TEST(Pin, AWrongAnswerZeroAndTheLockForGood) {
    LockedBench bench(4321);
    // 0, or what is no number, restarts: the port goes, and the question comes back.
    for (const std::string answer : {"0\r", "abc\r"}) {
        bench.Follow({{answer, 2999, answer + "\n"}});
        EXPECT_TRUE(bench.board.LinkIsUp());
        bench.Follow({{"", 1, ""}});
        EXPECT_FALSE(bench.board.LinkIsUp());
        bench.Follow({{"", 1500, kQuestion}});
    }
    LockedBench(7, "cmm2").Follow({{"8\r", 49, "8\r\n"}, {"", 1, kQuestion}});
    LockedBench locked(99999999);
    const std::string words = "Console locked, press enter to restart: ";
    EXPECT_TRUE(Has(locked.signOn, words));
    locked.Follow({{"99999999\r", 1499, "99999999\r\n"}, {"", 1, words}});
    // Set at the prompt it holds from the next start on, and isn't listed.
    BoardBench later;
    EXPECT_EQ(later.Type("OPTION PIN 55"), kQuiet);
    EXPECT_FALSE(Has(later.Say("OPTION LIST\r"), "55\r"));
    EXPECT_EQ(later.Type("CPU RESTART"), kQuestion);
}
