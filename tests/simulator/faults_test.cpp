// Troubles on request, pacing, and the telnet console.
#include "tests/simulator/board_bench.h"

namespace {

TEST(Faults, TheSameSeedGivesTheSameTrouble) {
    BoardSetup setup;
    setup.faults.lostOutPerMille = 100;
    setup.faults.garbagePerMille = 100;
    setup.faults.seed = 7;
    const std::string command = "PRINT STRING$(255,65)\r";
    const auto run = [&] { return BoardBench("picomite", setup).Say(command); };
    const std::string first = run();
    EXPECT_EQ(first, run());
    EXPECT_TRUE(first.size() > 200 && first.size() < 275) << first.size();
    setup.faults.seed = 8;
    EXPECT_NE(first, run());
    BoardSetup deaf;
    deaf.faults.lostInPerMille = 500;
    const size_t echoed = BoardBench("picomite", deaf).Say(std::string(200, 'a')).size();
    EXPECT_TRUE(echoed > 60 && echoed < 140) << echoed;
}

TEST(Faults, EchoDelaySilenceAndCut) {
    BoardSetup setup, slow, silent, cutting;
    setup.faults.noEcho = true;
    BoardBench("picomite", setup).Follow({{"PRINT 1\r", 10, " 1\r\n" + kQuiet}});
    slow.faults.delayMs = 700;
    BoardBench late("picomite", slow);
    late.Wait(1000);
    late.Follow({{"ab", 699, ""}, {"", 1, "ab"}});
    silent.faults.silent = true;
    BoardBench("picomite", silent).Follow({{"PRINT 1\r", 10, ""}});
    cutting.faults.cutAfterBytes = 200;
    BoardBench cut("picomite", cutting);
    std::string all = cut.signOn;
    for (int i = 0; i < 20; ++i) all += cut.Say("PRINT 123456\r");
    EXPECT_EQ(all.size(), 200u);
    EXPECT_FALSE(cut.board.LinkIsUp());
}

TEST(Faults, StormsAndTheSpeedOfALine) {
    BoardSetup setup, line;
    setup.faults.storm = {"\x18", 100, 0, 0, true};
    BoardBench cans("picomite", setup);
    EXPECT_EQ(cans.Wait(1000), "");  // only in a transfer
    EXPECT_EQ(cans.Type("XMODEM RECEIVE", 1000), "\x15" + std::string(10, '\x18'));
    setup.faults.storm = {"spam\r\n", 10, 500, 100, false};
    BoardBench flood("picomite", setup);
    EXPECT_EQ(flood.Wait(499), "");
    EXPECT_EQ(flood.Wait(10000).size(), 60u);
    line.baud = 9600;  // 0.96 bytes a millisecond
    BoardBench bench("picomite", line);
    bench.Wait(1000);
    EXPECT_EQ(bench.Say("PRINT STRING$(250,65)\r", 100).size(), 96u);
    EXPECT_EQ(bench.Wait(100).size(), 96u);
    EXPECT_EQ(bench.Wait(1000).substr(80), "A\r\n" + kQuiet);
}

TEST(Telnet, TheWebMiteCodesBothDirections) {
    const std::string greeting = "\xff\xfb\x03\xff\xfd\x03\xff\xfb\x01\xff\xfd\x22\xff\xfe\x22";
    BoardBench bench("webmite");
    EXPECT_EQ(bench.board.OutputSegment(), 4u);
    bench.board.SetListening(false);
    bench.board.SetListening(true);  // a host comes: 16 bytes, the last one a NUL
    EXPECT_EQ(bench.Wait(0), greeting + '\0');
    const std::string end("\r\0\n", 3);
    bench.Follow({{std::string("PRINT CHR$(255)\r\0", 17), 10,
                   "PRINT CHR$(255)" + end + "\xff\xff" + end + kQuiet},
                  {"\xff\xfb\x01typed", 10, ""},  // a segment that starts with 255 is lost whole
                  {"x=1\xff\xff\r", 10, "x=1" + end + kQuiet}});
    // What arrives is the same whatever it is cut into, as long as no segment starts with 255.
    const std::string data = std::string("a\r\n\xff\r\xff", 6) + '\0' + std::string(121, 'z');
    std::string frame = "\x01\x01\xfe" + data, coded;
    unsigned sum = 0;
    for (const char c : data) sum += static_cast<unsigned char>(c);
    for (const char c : frame + static_cast<char>(sum)) {
        coded += c == '\r' ? std::string("\r\0", 2) : std::string(c == '\xff' ? 2 : 1, c);
    }
    for (size_t cut = 1; cut < 16; ++cut) {
        if (coded[cut] == '\xff') continue;
        bench.Say("XMODEM RECEIVE \"f\"\r", 0);
        bench.Say(coded.substr(0, cut), 0);
        EXPECT_EQ(bench.Say(coded.substr(cut), 2), "\x06") << cut;
        bench.Say("\x04", 2000);
        std::string held;
        EXPECT_TRUE(bench.board.ReadFile("f", &held) && held == data) << cut;
    }
    BoardSetup setup;
    setup.onUsb = true;
    EXPECT_EQ(BoardBench("webmite", setup).Type("PRINT 1"), " 1\r\n" + kQuiet);
}

}  // namespace
