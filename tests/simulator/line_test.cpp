// XMODEM with the habits and faults of firmware 6.03, telnet, and troubles on request.
#include "tests/simulator/board_bench.h"
#include "tests/support/XmodemFrame.h"

namespace {

const std::string kNak = "\x15", kAck = "\x06", kEot = "\x04", kCan = "\x18";

TEST(Xmodem, TheBoardReceives) {
    const auto block = [](int n) { return FrameOf(n, std::string(128, char('A' + n))); };
    const std::string command = "XMODEM RECEIVE \"f.bas\"\r";
    BoardBench bench;
    std::string bad = block(1), held;
    bad[60] ^= 1;
    bench.Follow({{command, 1999, command + "\n" + kNak},
                  {"", 1, kNak},        // it asks every 2 s
                  {"\n", 0, kNak},      // and at each stray byte
                  {block(0), 0, kAck},  // a YMODEM header is ignored
                  {bad, 1499, ""},      // corrupt: 1.5 s
                  {"", 1, kNak},
                  {block(1).substr(0, 50), 2499, ""},  // short: 1 s more
                  {"", 1, kNak},
                  {block(1), 2, kAck},
                  {block(1), 0, kAck},     // repeated: acknowledged, not written
                  {block(4), 1500, kNak},  // out of order
                  {"\x02", 2, ""},         // STX is noise, with no NAK any more
                  {kEot, 1499, ""},        // a host that repeats EOT too early is not answered
                  {kEot, 1499, ""},
                  {"", 1, kAck + kLoud603}});
    EXPECT_TRUE(bench.board.ReadFile("f.bas", &held) && held == std::string(128, 'B'));
}

TEST(Xmodem, TheBoardSends) {
    const std::string command = "XMODEM SEND \"f.bas\"\r", one = FrameOf(1, std::string(128, 'x'));
    const std::string two = FrameOf(2, std::string(72, 'x') + std::string(56, '\0'));
    BoardBench bench;
    bench.board.AddFile("f.bas", std::string(200, 'x'), 0);
    bench.Follow({{command, 0, command + "\n"},
                  {kNak + kNak, 0, one + one},  // nothing is flushed
                  {"", 2999, ""},
                  {"", 1, one},
                  {"?", 0, one},  // at once on any other byte
                  {kAck, 0, two},
                  {kAck, 0, kEot},
                  {kAck, 0, kLoud603},
                  {command + kCan, 200, command + "\nError : Cancelled by remote\r\n" + kLoud603}});
}

TEST(Telnet, TheWebMiteCodesBothDirections) {
    BoardBench bench("webmite");
    EXPECT_EQ(bench.board.OutputSegment(), 4u);
    bench.board.SetListening(false);
    bench.board.SetListening(true);  // a host comes
    const std::string end("\r\0\n", 3);
    bench.Follow({{"", 0, {"\xff\xfb\x03\xff\xfd\x03\xff\xfb\x01\xff\xfd\x22\xff\xfe\x22\0", 16}},
                  {std::string("PRINT CHR$(255)\r\0", 17), 10,
                   "PRINT CHR$(255)" + end + "\xff\xff" + end + kQuiet},
                  {"\xff\xfb\x01typed", 10, ""},  // a segment that starts with 255 is lost whole
                  {"x=1\xff\xff\r", 10, "x=1" + end + kQuiet}});
}

TEST(Faults, EachTroubleOnRequest) {
    const std::string signOn = BoardBench().signOn;
    const int length = int(signOn.size());
    // Seed, per mille lost out, lost in and spoilt, delay, no echo, silence, cut, storm, interval.
    const std::pair<BoardFaults, std::vector<Step>> rows[] = {
        {{1, 0, 0, 0, 30, false, false, 0, "", 1}, {{"", 30, signOn}, {"x", 29, ""}, {"", 1, "x"}}},
        {{1, 0, 0, 0, 0, true, false, 0, "", 1}, {{"?1\r", 10, " 1\r\n" + kQuiet}}},
        {{1, 0, 0, 0, 0, false, true, 0, "", 1}, {{"x\r", 10, ""}}},
        {{1, 0, 0, 0, 0, false, false, length + 3, "", 1}, {{"abcd", 9, "abc"}, {"x", 9, ""}}},
        {{1, 0, 0, 0, 0, false, false, 0, "<>", 4}, {{"x", 9, "<>x<><>"}, {"", 3, "<>"}}},
    };
    for (const auto& [faults, steps] : rows) {
        BoardSetup setup;
        setup.faults = faults;
        BoardBench bench("picomite", setup);
        bench.Follow(steps);
        EXPECT_EQ(bench.board.LinkIsUp(), faults.cutAfterBytes == 0);
    }
    BoardSetup setup;
    setup.faults.lostOutPerMille = setup.faults.garbagePerMille = setup.faults.lostInPerMille = 50;
    const std::string left = BoardBench("picomite", setup).Say(std::string(255, 'A'));
    EXPECT_EQ(left, BoardBench("picomite", setup).Say(std::string(255, 'A')));
    EXPECT_TRUE(left.size() > 200 && left.size() < 250) << left.size();
}

}  // namespace
