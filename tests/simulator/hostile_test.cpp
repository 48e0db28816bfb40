// Streams that mean harm, troubles on request, and the telnet console.
#include <chrono>
#include <cstring>
#include <random>

#include "simulator/BoardOutput.h"
#include "tests/simulator/board_bench.h"
#include "tests/support/XmodemFrame.h"

namespace {

// Pieces that lead deep into the board, so that chance need not spell them.
const char kPieces[] =
    "AUTOSAVE\r|AUTO\r|NEW\r|RUN\r|LIST\r|FILES\r|LS\r|XMODEM SEND \"x\"\r|XMODEM RECEIVE \"x\"\r|"
    "\x04|\x01\x01\xfe|\x06|\x15|\x18|FOR i=1 TO 9|NEXT|GOTO a|a:|DO|LOOP|IF |THEN|ELSE|ENDIF|"
    "PRINT |INPUT a$|\"|(|)|-|NOT |LEFT$(|STRING$(255,\"A\")|DIM a(99)|=|a$|+a$|99999999999|1e308|"
    "^|\\0|,|:|\r|\n|\x1a|\x1b[12~|\x1b[A|\x1b|\x91|\x92|\x03|\b|\t|SAVE \"x\"\r|RUN \"x\"\r|"
    "MKDIR \"d\"\r|CHDIR \"d\"\r|FLASH SAVE 1\r|FLASH RUN 1\r|PAUSE 9\r|DATE$=\"31-12-2999\"\r";

// Pieces and single bytes in uneven chunks at uneven times; the longest output of one take.
size_t Feed(BoardBench& bench, std::mt19937& random) {
    size_t longest = 0;
    for (size_t fed = 0; fed < 150000;) {
        std::string chunk;
        for (const size_t least = 1 + random() % 200; chunk.size() < least;) {
            const char* piece = kPieces + random() % (sizeof kPieces - 1);
            while (piece > kPieces && piece[-1] != '|') --piece;
            chunk += random() % 4 != 0 ? std::string(piece, strcspn(piece, "|"))
                                       : std::string(1, random() % 256);
        }
        fed += chunk.size();
        bench.board.Receive(chunk, bench.now);
        bench.board.Advance(bench.now += random() % 8 == 0 ? random() % 300 : 1);
        longest = std::max(longest, bench.board.TakeOutput().size());
    }
    return longest;
}

TEST(Hostile, RandomStreamsLeaveEveryBoardAliveAndBounded) {
    const unsigned seed = std::random_device{}();
    for (const BoardFacts& facts : AllBoardFacts()) {
        SCOPED_TRACE(facts.name + (" with seed " + std::to_string(seed)));
        std::mt19937 random(seed);
        BoardBench bench(facts.name);
        EXPECT_LE(Feed(bench, random), kOutputLimit + 4096);
        // Out of whatever it is in: a program, a transfer.
        for (const int ms : {200000, 5000}) bench.Say("\x03", ms);
        const std::string out = bench.Say("PRINT 6*7\r", 5000);
        EXPECT_TRUE(Has(out, facts.basic ? " 42\r" : "> ")) << out.substr(0, 300);
    }
}

TEST(Hostile, NothingTakenOutMeansNothingGrows) {
    BoardBench bench;
    bench.Say("AUTOSAVE\rDO:PRINT STRING$(255,\"A\");:LOOP\r\x1a");
    bench.board.Receive("RUN\r", bench.now);
    for (int i = 0; i < 1000; ++i) bench.board.Advance(bench.now += 100);
    const size_t size = bench.board.TakeOutput().size();
    EXPECT_TRUE(size >= kOutputHighWater && size <= kOutputHighWater + 64 * 256);  // a slice more
    bench.Say("\x03", 100);
    // Typing without reading the echo ends at the limit.
    for (int i = 0; i < 30000; ++i) bench.board.Receive(std::string(100, 'x') + "\r", bench.now);
    EXPECT_LE(bench.Say("", 1000).size(), kOutputLimit + 4096);
    // One call for a stretch of years comes back at once, in a program that starts itself anew.
    bench.Say("\x03");
    bench.Say("AUTOSAVE\rRUN\r\x1a");
    bench.board.Receive("RUN\r", bench.now);
    const auto before = std::chrono::steady_clock::now();
    bench.board.Advance(bench.now += 1000000000000);
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(20));
    EXPECT_TRUE(Has(bench.Say("\x03", 10), kLoud603));
    // Nor does depth or a number of files.
    EXPECT_TRUE(Has(bench.Say("PRINT " + std::string(200, '(') + "1\r"), "too complex"));
    int files = 0;
    while (files < 2000 && bench.board.AddFile("n" + std::to_string(files), "", 0)) ++files;
    EXPECT_EQ(files, 1000);
}

TEST(Faults, TheSameSeedGivesTheSameTrouble) {
    BoardSetup setup;
    setup.faults.lostOutPerMille = setup.faults.garbagePerMille = setup.faults.lostInPerMille = 50;
    const std::string said(255, 'A');
    const auto run = [&] { return BoardBench("picomite", setup).Say(said); };
    const std::string first = run();
    EXPECT_EQ(first, run());
    EXPECT_TRUE(first.size() > 200 && first.size() < 250) << first.size();
}

TEST(Telnet, TheWebMiteCodesBothDirections) {
    BoardBench bench("webmite");
    EXPECT_EQ(bench.board.OutputSegment(), 4u);
    bench.board.SetListening(false);
    bench.board.SetListening(true);  // a host comes
    EXPECT_EQ(bench.Say("", 0),
              std::string("\xff\xfb\x03\xff\xfd\x03\xff\xfb\x01\xff\xfd\x22\xff\xfe\x22\0", 16));
    const std::string end("\r\0\n", 3);
    bench.Follow({{std::string("PRINT CHR$(255)\r\0", 17), 10,
                   "PRINT CHR$(255)" + end + "\xff\xff" + end + kQuiet},
                  {"\xff\xfb\x01typed", 10, ""},  // a segment that starts with 255 is lost whole
                  {"x=1\xff\xff\r", 10, "x=1" + end + kQuiet}});
    // A frame that is cut between CR and NUL, and begins a segment with the NUL.
    const std::string data = "\r\xff\xff" + std::string(125, 'z'),
                      sum = FrameOf(1, data).substr(131);
    bench.Say("XMODEM RECEIVE \"f\"\r", 0);
    bench.Say("\x01\x01\xfe\r", 0);
    EXPECT_EQ(bench.Say(std::string("\0\xff\xff\xff\xff", 5) + data.substr(3) + sum, 2), "\x06");
    std::string held;
    EXPECT_EQ(bench.Say("\x04", 2000).substr(0, 1), "\x06");
    EXPECT_TRUE(bench.board.ReadFile("f", &held) && held == data);
}

}  // namespace
