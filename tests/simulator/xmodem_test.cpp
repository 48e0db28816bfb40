// XMODEM on a stepped clock: the habits of firmware 6.03 and its faults. Those of the older
// firmware are seen by the file manager's session.
#include "tests/simulator/board_bench.h"

namespace {

const std::string kNak = "\x15", kAck = "\x06", kEot = "\x04", kCan = "\x18",
                  kCan3 = "\x18\x18\x18";
const std::string kManyErrors = kCan3 + "Error : Too many errors\r\n" + kLoud603;
const std::string kCancelled = "Error : Cancelled by remote\r\n";
const std::string kLoud600 = "\x1b[?25h> ";

std::string Data(size_t number) {
    return std::string(128, static_cast<char>('A' + number % 26));
}

// A frame of the host, with a checksum.
std::string Frame(size_t number, const std::string& data) {
    std::string frame = {'\x01', static_cast<char>(number), static_cast<char>(~number)};
    unsigned sum = 0;
    for (const char c : data) sum += static_cast<unsigned char>(c);
    return frame + data + static_cast<char>(sum);
}

std::string Block(size_t number) {
    return Frame(number, Data(number));
}

// A board that asks for blocks.
struct Receiving : BoardBench {
    explicit Receiving(const char* family = "picomite") : BoardBench(family) {
        EXPECT_EQ(Type("XMODEM RECEIVE \"f.bas\"", 0), kNak);
    }
    std::string Stored() const {
        std::string data;
        board.ReadFile("f.bas", &data);
        return data;
    }
};

// A board that offers a file of 200 "x".
struct Sending : BoardBench {
    explicit Sending(const char* family) : BoardBench(family) {
        board.AddFile("f.bas", std::string(200, 'x'), 0);
        EXPECT_EQ(Type("XMODEM SEND \"f.bas\"", 0), "");
    }
    const std::string one = Frame(1, std::string(128, 'x'));
    const std::string two = Frame(2, std::string(72, 'x') + std::string(56, '\0'));
};

TEST(XmodemReceive, BadBlocksRepeatsAndCancel) {
    Receiving bench;
    std::string bad = Block(1);
    bad[60] ^= 1;
    bench.Follow({{"", 1999, ""},  // it asks every 2 s, and at each stray byte
                  {"", 1, kNak},
                  {"\n", 0, kNak},
                  {Frame(0, Data(0)), 0, kAck},  // a YMODEM header is ignored
                  {bad, 1499, ""},               // corrupt: 1.5 s
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
    EXPECT_EQ(bench.Stored(), Data(1));
    Receiving("picomite-6.00").Follow({{kCan, 1499, ""}, {"", 201, kAck + kCancelled + kLoud600}});
}

TEST(XmodemSend, TheHabitsOfFirmware603) {
    Sending now("picomite"), crc("picomite"), stubborn("picomite");
    now.Follow({{kNak, 0, now.one}, {kAck, 0, now.two}, {kAck, 0, kEot}, {kAck, 0, kLoud603}});
    EXPECT_EQ(crc.Say("C", 0), crc.one.substr(0, 131) + "\x81\xd7");  // of 128 times "x"
    Sending("picomite").Follow({{kCan, 10000, kCancelled + kLoud603}});
    stubborn.Follow({{kNak + kNak, 0, now.one + now.one},  // nothing is flushed
                     {"", 2999, ""},
                     {"", 1, now.one},
                     {"?", 0, now.one}});  // at once on any other byte
    EXPECT_EQ(stubborn.Wait(67000).size(), 21 * 132 + kManyErrors.size());
}

}  // namespace
