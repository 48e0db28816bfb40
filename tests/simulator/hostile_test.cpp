// Streams that mean harm: the board stays alive, answers in the end, and keeps its bounds.
#include <chrono>
#include <cstring>
#include <random>

#include "simulator/BoardOutput.h"
#include "tests/simulator/board_bench.h"

namespace {

// Pieces that lead deep into the board, so that chance need not spell them.
const char kPieces[] =
    "AUTOSAVE\r|AUTO\r|NEW\r|RUN\r|LIST\r|FILES\r|LS\r|KILL \"*\"\r|XMODEM SEND\r|"
    "XMODEM RECEIVE \"x\"\r|\x01\x01\xfe|\x04|\x06|\x15|\x18|C|FOR i=1 TO 9|NEXT|GOTO a|a:|"
    "DO|LOOP|IF |THEN|ELSE|ENDIF|PRINT |INPUT a$|\"|(|)|-|NOT |LEFT$(|STRING$(255,65)|"
    "DIM a(99)|=|a$|+a$|99999999999|1e308|^|\\0|,|:|\r|\n|\x1a|\x1b[12~|\x1b[A|"
    "\x1b|\x91|\x92|\x03|\x7f|\b|\t|SAVE \"x\"\r|LOAD \"x\"\r|RUN \"x\"\r|MKDIR \"d\"\r|"
    "CHDIR \"d\"\r|CHDIR \"..\"\r|FLASH SAVE 1\r|FLASH RUN 1\r|OPTION LIST\r|*x|"
    "PAUSE 9\r|DATE$=\"31-12-2999\"\r|PRINT STRING$(255,66);\r|"
    "xmodem send \"x\"\r";

// Pieces or single bytes in uneven chunks at uneven times; the longest output of one take.
size_t Feed(BoardBench& bench, std::mt19937& random, bool pieces) {
    size_t longest = 0;
    for (size_t fed = 0; fed < 100000;) {
        std::string chunk;
        for (const size_t least = 1 + random() % 200; chunk.size() < least;) {
            const char* piece = kPieces + random() % (sizeof kPieces - 1);
            while (piece > kPieces && piece[-1] != '|') --piece;
            const bool whole = pieces && random() % 4 != 0;
            chunk +=
                whole ? std::string(piece, strcspn(piece, "|")) : std::string(1, char(random()));
        }
        fed += chunk.size();
        bench.board.Receive(chunk, bench.now);
        bench.board.Advance(bench.now += random() % 8 == 0 ? int64_t(random() % 300) : 1);
        longest = std::max(longest, bench.board.TakeOutput().size());
    }
    return longest;
}

TEST(Hostile, RandomStreamsLeaveEveryBoardAliveAndBounded) {
    const unsigned seed = std::random_device{}();
    for (size_t i = 0; i < BoardFactsCount(); ++i) {
        for (const bool pieces : {false, true}) {
            const std::string name = BoardFactsAt(i).name;
            SCOPED_TRACE(name + (pieces ? " with pieces" : " at random") + ", seed " +
                         std::to_string(seed));
            std::mt19937 random(seed);
            BoardBench bench(name.c_str());
            EXPECT_LE(Feed(bench, random, pieces), kOutputLimit + 4096);
            // Out of whatever it is in: a program, a transfer.
            for (const int ms : {200000, 5000}) bench.Say("\x03", ms);
            const std::string out = bench.Say("PRINT 6*7\r", 5000);
            EXPECT_TRUE(Has(out, BoardFactsAt(i).basic ? " 42\r" : "> ")) << out.substr(0, 300);
        }
    }
}

TEST(Hostile, NothingTakenOutMeansNothingGrows) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rDO:PRINT STRING$(255,65);:LOOP\r\x1a");
    bench.board.Receive("RUN\r", bench.now);
    for (int i = 0; i < 1000; ++i) bench.board.Advance(bench.now += 100);
    const std::string out = bench.board.TakeOutput();
    EXPECT_GE(out.size(), kOutputHighWater);
    EXPECT_LE(out.size(), kOutputHighWater + 64 * 256);  // one slice more
    bench.board.Receive("\x03", bench.now);
    bench.Wait(100);
    // Typing without reading the echo ends at the limit.
    for (int i = 0; i < 30000; ++i) bench.board.Receive(std::string(100, 'x') + "\r", bench.now);
    EXPECT_LE(bench.board.TakeOutput().size(), kOutputLimit + 4096);
    // One call for a stretch of years comes back at once, in the middle of a program.
    bench.Say("\x03");
    bench.Say("AUTOSAVE\rRUN\r\x1a");  // that starts itself over and over
    bench.board.Receive("RUN\r", bench.now);
    const auto before = std::chrono::steady_clock::now();
    bench.board.Advance(bench.now += 1000000000000);
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(20));
    bench.board.TakeOutput();
    EXPECT_EQ(bench.Say("\x03", 10), kLoud603);
}

TEST(Hostile, DeepAndWideProgramsFailInWords) {
    BoardBench bench;
    std::string many = "AUTOSAVE\r", nots, calls;
    for (int i = 0; i < 600; ++i) many += "v" + std::to_string(i) + "=1\r";
    for (int i = 0; i < 50; ++i) nots += "NOT ", calls += i < 40 ? "ABS(" : "";
    const std::string tooDeep = "Expression is too complex";
    EXPECT_TRUE(Has(bench.Say("PRINT " + std::string(200, '(') + "1\r"), tooDeep));
    EXPECT_TRUE(Has(bench.Say("PRINT " + calls + "1\r"), tooDeep));
    EXPECT_TRUE(Has(bench.Say("PRINT " + std::string(40, '-') + nots + "0\r"), "\r\n 0\r\n"));
    bench.Say(many + "\x1a");
    EXPECT_TRUE(Has(bench.Say("RUN\r"), "[513] v512=1\r\nError : Not enough memory"));
    // A drive takes so many files and no more.
    int files = 0;
    while (files < 2000 && bench.board.AddFile("n" + std::to_string(files), "", 0)) ++files;
    EXPECT_EQ(files, 1000);
    EXPECT_FALSE(bench.board.AddFile(std::string(200, 'x'), "", 0));
    EXPECT_FALSE(bench.board.AddFile("../up", "", 0));
}

TEST(Hostile, AFullUartRingLosesItsOldestBytes) {
    BoardBench bench("armmite");
    bench.Say("AUTOSAVE\rINPUT a$:PAUSE 100:INPUT b$:PRINT LEN(b$);b$\r\x1a");
    bench.Say("RUN\rx\r", 50);
    // 300 bytes while it pauses: the last 256 are left.
    EXPECT_TRUE(Has(bench.Say(std::string(60, 'a') + std::string(239, 'b') + "\r"),
                    " 254" + std::string(16, 'a') + std::string(238, 'b') + "\r\n"));
}

}  // namespace
