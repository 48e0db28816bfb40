// XMODEM on a stepped clock: the habits of firmware 6.03 and its faults. Those of the older
// firmware are seen by the file manager's session.
#include "tests/simulator/board_bench.h"
#include "tests/support/XmodemFrame.h"

namespace {

const std::string kNak = "\x15", kAck = "\x06", kEot = "\x04", kCan = "\x18";

std::string Block(int number) {
    return FrameOf(number, std::string(128, char('A' + number)));
}

TEST(Xmodem, TheBoardReceives) {
    const std::string command = "XMODEM RECEIVE \"f.bas\"\r";
    BoardBench bench, old("picomite-6.00");
    std::string bad = Block(1), held;
    bad[60] ^= 1;
    bench.Follow({{command, 1999, command + "\n" + kNak},
                  {"", 1, kNak},        // it asks every 2 s
                  {"\n", 0, kNak},      // and at each stray byte
                  {Block(0), 0, kAck},  // a YMODEM header is ignored
                  {bad, 1499, ""},      // corrupt: 1.5 s
                  {"", 1, kNak},
                  {Block(1).substr(0, 50), 2499, ""},  // short: 1 s more
                  {"", 1, kNak},
                  {Block(1), 2, kAck},
                  {Block(1), 0, kAck},     // repeated: acknowledged, not written
                  {Block(4), 1500, kNak},  // out of order
                  {"\x02", 2, ""},         // STX is noise, with no NAK any more
                  {kEot, 1499, ""},        // a host that repeats EOT too early is not answered
                  {kEot, 1499, ""},
                  {"", 1, kAck + kLoud603}});
    EXPECT_TRUE(bench.board.ReadFile("f.bas", &held) && held == std::string(128, 'B'));
    old.Follow({{command, 0, command + "\n" + kNak},
                {kCan, 1499, ""},
                {"", 201, kAck + "Error : Cancelled by remote\r\n" + kLoud600}});
}

TEST(Xmodem, TheBoardSends) {
    const std::string command = "XMODEM SEND \"f.bas\"\r", one = FrameOf(1, std::string(128, 'x'));
    const std::string two = FrameOf(2, std::string(72, 'x') + std::string(56, '\0'));
    BoardBench now, cancelled, ignored;
    for (BoardBench* bench : {&now, &cancelled, &ignored}) {
        bench->board.AddFile("f.bas", std::string(200, 'x'), 0);
        EXPECT_EQ(bench->Say(command, 0), command + "\n");
    }
    now.Follow({{kNak + kNak, 0, one + one},  // nothing is flushed
                {"", 2999, ""},
                {"", 1, one},
                {"?", 0, one},  // at once on any other byte
                {kAck, 0, two},
                {kAck, 0, kEot},
                {kAck, 0, kLoud603}});
    cancelled.Follow({{"C", 0, ""}, {kCan, 200, "Error : Cancelled by remote\r\n" + kLoud603}});
    const std::string end =
        "\x18\x18\x18"
        "Error : Too many errors\r\n" +
        kLoud603;
    const std::string tries = ignored.Say(kNak, 80000);
    EXPECT_EQ(tries.substr(std::min<size_t>(tries.size(), 25 * 132)), end);
}

}  // namespace
