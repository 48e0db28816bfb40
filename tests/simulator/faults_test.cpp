// Troubles on request, pacing, and the telnet console.
#include "simulator/TelnetCoding.h"
#include "tests/simulator/board_bench.h"

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

TEST(Telnet, CodingOfBothDirections) {
    const std::string all = std::string("a\r\n\xff\r\xff", 6) + '\0';
    EXPECT_EQ(EncodeTelnet(all), std::string("a\r\0\n\xff\xff\r\0\xff\xff\0", 11));
    // Whatever it is cut into, as long as no segment starts with 255.
    const std::string coded = EncodeTelnet(all);
    for (size_t cut = 1; cut < 11; ++cut) {
        if (coded[cut] == '\xff') continue;
        TelnetCoding coding;
        const std::string first = DecodeTelnet(coding, coded.substr(0, cut));
        EXPECT_EQ(first + DecodeTelnet(coding, coded.substr(cut)), all) << cut;
    }
    TelnetCoding coding;
    EXPECT_EQ(DecodeTelnet(coding, "\xff\xfb\x01typed"), "");  // thrown away whole
}
