// Troubles on request, and the telnet console.
#include "tests/simulator/board_bench.h"

namespace {

TEST(Faults, TheSameSeedGivesTheSameTrouble) {
    BoardSetup setup, deaf;
    setup.faults.lostOutPerMille = setup.faults.garbagePerMille = 100;
    const auto run = [&] { return BoardBench("picomite", setup).Say("PRINT STRING$(255,65)\r"); };
    const std::string first = run();
    EXPECT_EQ(first, run());
    EXPECT_TRUE(first.size() > 200 && first.size() < 275) << first.size();
    setup.faults.seed = 8;
    EXPECT_NE(first, run());
    deaf.faults.lostInPerMille = 500;
    const size_t echoed = BoardBench("picomite", deaf).Say(std::string(200, 'a')).size();
    EXPECT_TRUE(echoed > 60 && echoed < 140) << echoed;
}

TEST(Faults, EchoDelaySilenceAndCut) {
    BoardSetup mute, slow, silent, cutting;
    mute.faults.noEcho = true;
    BoardBench("picomite", mute).Follow({{"PRINT 1\r", 10, " 1\r\n" + kQuiet}});
    slow.faults.delayMs = 700;
    BoardBench late("picomite", slow);
    late.Wait(1000);
    late.Follow({{"ab", 699, ""}, {"", 1, "ab"}});
    silent.faults.silent = true;
    BoardBench("picomite", silent).Follow({{"PRINT 1\r", 10, ""}});
    cutting.faults.cutAfterBytes = 200;
    BoardBench cut("picomite", cutting);
    EXPECT_EQ((cut.signOn + cut.Say(std::string(200, 'x'))).size(), 200u);
    EXPECT_FALSE(cut.board.LinkIsUp());
}

TEST(Faults, Storms) {
    BoardSetup setup;
    setup.faults.storm = {"\x18", 100, true};
    BoardBench cans("picomite", setup);
    EXPECT_EQ(cans.Wait(1000), "");  // only in a transfer
    EXPECT_EQ(cans.Type("XMODEM RECEIVE", 1000), "\x15" + std::string(10, '\x18'));
    setup.faults.storm = {"spam\r\n", 10, false};
    BoardBench flood("picomite", setup);
    flood.Wait(1);
    EXPECT_EQ(flood.Wait(100).size(), 60u);
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
    const std::string data = std::string("a\r\n\xff\r\xff\0", 7) + std::string(121, 'z');
    const std::string coded = std::string(
                                  "\x01\x01\xfe"
                                  "a\r\0\n\xff\xff\r\0\xff\xff\0",
                                  14) +
                              data.substr(7);
    for (size_t cut = 1; cut < 16; ++cut) {
        if (coded[cut] == '\xff') continue;
        bench.Say("XMODEM RECEIVE \"f\"\r", 0);
        bench.Say(coded.substr(0, cut), 0);
        EXPECT_EQ(bench.Say(coded.substr(cut) + "\x2d", 2), "\x06") << cut;
        bench.Say("\x04", 2000);
        std::string held;
        EXPECT_TRUE(bench.board.ReadFile("f", &held) && held == data) << cut;
    }
    BoardSetup setup;
    setup.onUsb = true;
    EXPECT_EQ(BoardBench("webmite", setup).Type("PRINT 1"), " 1\r\n" + kQuiet);
}

}  // namespace
