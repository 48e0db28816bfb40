// XMODEM on a stepped clock: the habits of both firmware ages, and their faults.
#include "tests/simulator/board_bench.h"

namespace {

const std::string kNak = "\x15", kAck = "\x06", kEot = "\x04", kCan = "\x18",
                  kCan3 = "\x18\x18\x18";
const std::string kNoAnswer = "Error : Remote did not respond\r\n";
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

// A board that offers a file of so many "x".
struct Sending : BoardBench {
    explicit Sending(const char* family, size_t size = 200) : BoardBench(family) {
        board.AddFile("f.bas", std::string(size, 'x'), 0);
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

TEST(XmodemReceive, ARepeatedBlock255IsRefusedForEver) {
    Receiving bench;
    for (size_t i = 1; i <= 255; ++i) ASSERT_EQ(bench.Say(Block(i), 2), kAck) << i;
    bench.Follow({{Block(255), 1500, kNak}, {Block(255), 1500, kNak}});
    EXPECT_EQ(bench.Say(Frame(0, Data(5)), 2), kAck);  // block 256 is the way on
    bench.Say(kEot, 2000);
    EXPECT_EQ(bench.Stored().substr(255 * 128), Data(5));
}

// It goes out with its last LF cut, on old firmware the CR too.
TEST(Xmodem, ProgramMemory) {
    BoardBench bench, older("armmite");
    std::string text = "PRINT 1\r\nPRINT 2";
    text.resize(128, '\0');
    bench.Follow({{"XMODEM R\r", 0, "XMODEM R\r\n" + kNak},
                  {Frame(1, text), 2, kAck},
                  {kEot, 2000, kAck + "Saved 28 bytes\r\n" + kLoud603}});
    EXPECT_TRUE(Has(bench.Say("XMODEM S\r" + kNak), std::string("\nPRINT 2\r\0", 10)));
    older.Say("AUTOSAVE\rPRINT 1\r\x1a");
    EXPECT_TRUE(Has(older.Say("XMODEM S\r" + kNak), std::string("PRINT 1\0\0", 9)));
    BoardBench("cmm2").ExpectDialogue("XMODEM R -> Syntax\n");
}

TEST(XmodemSend, TheHabitsOfFirmware603) {
    Sending now("picomite"), crc("picomite"), lost("picomite", 1), stubborn("picomite");
    now.Follow({{kNak, 0, now.one}, {kAck, 0, now.two}, {kAck, 0, kEot}, {kAck, 0, kLoud603}});
    EXPECT_EQ(crc.Say("C", 0), crc.one.substr(0, 131) + "\x81\xd7");  // of 128 times "x"
    Sending("picomite").Follow({{kCan, 10000, kCancelled + kLoud603}});
    stubborn.Follow({{kNak + kNak, 0, now.one + now.one},  // nothing is flushed
                     {"", 2999, ""},
                     {"", 1, now.one},
                     {"?", 0, now.one}});  // at once on any other byte
    EXPECT_EQ(stubborn.Wait(67000).size(), 21 * 132 + kManyErrors.size());
    lost.Follow({{kNak, 0, Frame(1, "x" + std::string(127, '\0'))},  // EOT unanswered: a success
                 {kAck, 29999, std::string(10, '\x04')},
                 {"", 1, kLoud603}});
}

TEST(XmodemSend, TheHabitsOfOldFirmware) {
    Sending old("picomite-6.00"), slow("armmite"), lost("armmite", 1);
    old.Follow({{kNak, 0, old.one}, {kAck, 0, old.two}, {kAck, 0, kEot}});
    old.Follow({{kAck, 1499, ""}, {"", 1, kLoud600}});  // 1.5 s of silence before its prompt
    Sending("armmite").Follow({{kCan, 999, ""}, {kCan, 1499, kAck}, {"", 1, kCancelled + "> "}});
    slow.Follow({{kNak, 999, slow.one}, {"", 1, slow.one}});
    slow.Follow({{kCan, 1500, kAck + kCancelled + "> "}});
    // "C" is ignored, and one of 32 tries of 2 s.
    Sending("picomite-6.00")
        .Follow({{"C", 61999, ""}, {"", 1, kCan3}, {"", 1700, kNoAnswer + kLoud600}});
    lost.Follow({{kNak, 0, Frame(1, "x" + std::string(127, '\0'))},
                 {kAck, 21499, std::string(10, '\x04')},
                 {"", 1, "Error : Error closing\r\n> "}});
}

}  // namespace
