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
    void Give(size_t first, size_t last) {
        for (size_t i = first; i <= last; ++i) ASSERT_EQ(Say(Block(i), 2), kAck) << i;
    }
    std::string Stored() const {
        std::string data;
        return board.ReadFile("f.bas", &data) ? data : "(none)";
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

TEST(XmodemReceive, TheStartAsks32TimesAndStrayBytesCostTries) {
    Receiving start;
    start.Follow({{"", 1999, ""}, {"", 1, kNak}, {"\n", 0, kNak}, {"", 1999, ""}, {"", 1, kNak}});
    for (int i = 5; i <= 32; ++i) EXPECT_EQ(start.Wait(2000), kNak) << i;
    start.Follow({{"", 1999, ""}, {"", 201, kCan3 + kNoAnswer + kLoud603}});
    // After the first block it waits in silence, for 32 tries of 2 s; the partial file stays.
    Receiving later;
    later.Give(1, 1);
    later.Follow({{"", 63990, ""}, {"", 300, kCan3 + kNoAnswer + kLoud603}});
    EXPECT_EQ(later.Stored(), Data(1));
}

TEST(XmodemReceive, BadBlocksRepeatsAndCancel) {
    Receiving bench;
    std::string bad = Block(1);
    bad[60] ^= 1;
    bench.Follow({{Frame(0, Data(0)), 0, kAck},  // a YMODEM header is ignored
                  {bad, 1499, ""},               // corrupt: 1.5 s
                  {"", 1, kNak},
                  {Block(1).substr(0, 50), 2499, ""},  // short: 1 s more
                  {"", 1, kNak},
                  {Block(1), 1, ""},  // 2 ms to write it
                  {"", 1, kAck}});
    bench.Give(2, 2);
    bench.Follow({{Block(2), 0, kAck},     // repeated: acknowledged, not written
                  {Block(4), 1500, kNak},  // out of order
                  {"\x02", 2, ""}});       // STX is noise, with no NAK any more
    bench.Give(3, 3);
    // A host that repeats EOT every second is never answered.
    for (int i = 0; i < 5; ++i) EXPECT_EQ(bench.Say(kEot, 1000), "");
    bench.Follow({{"", 499, ""}, {"", 1, kAck + kLoud603}});
    EXPECT_EQ(bench.Stored(), Data(1) + Data(2) + Data(3));
    Receiving("picomite-6.00").Follow({{kCan, 1499, ""}, {"", 201, kAck + kCancelled + kLoud600}});
    Receiving stubborn;
    EXPECT_EQ(stubborn.Say("\x03", 0), kNak);  // Ctrl-C is data in a transfer
    for (int i = 0; i < 25; ++i) EXPECT_EQ(stubborn.Say(Block(0), 2), kAck) << i;
    stubborn.Follow({{Block(0), 1499, ""}, {"", 201, kManyErrors}});
}

TEST(XmodemReceive, ARepeatedBlock255IsRefusedForEver) {
    Receiving bench;
    bench.Give(1, 255);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(bench.Say(Block(255), 1500), kNak);
    EXPECT_EQ(bench.Say(Frame(0, Data(5)), 2), kAck);  // block 256 is the way on
    bench.Say(kEot, 2000);
    EXPECT_EQ(bench.Stored().substr(255 * 128), Data(5));
}

TEST(Xmodem, ProgramMemory) {
    BoardBench bench;
    EXPECT_EQ(bench.Type("XMODEM R", 0), kNak);
    std::string text = "PRINT 1\r\nPRINT 2";
    text.resize(128, '\0');
    EXPECT_EQ(bench.Say(Frame(1, text), 2), kAck);
    EXPECT_EQ(bench.Say(kEot), kAck + "Saved 28 bytes\r\n" + kLoud603);
    // It goes out with its last LF cut, on old firmware the CR too.
    EXPECT_EQ(bench.Say("XMODEM S\r" + kNak, 0).substr(13, 20),
              std::string("PRINT 1\r\nPRINT 2\r") + std::string(3, '\0'));
    BoardBench older("armmite");
    older.Say("AUTOSAVE\rPRINT 1\r\x1a");
    EXPECT_EQ(older.Say("XMODEM S\r" + kNak, 0).substr(13, 9), std::string("PRINT 1\0\0", 9));
    BoardBench("cmm2").ExpectDialogue(
        "XMODEM R -> Syntax\nXMODEM SEND \"no\" -> Could not find the file\n");
}

TEST(XmodemSend, AWholeFileIsPaddedWithZerosUnlessItIsCancelled) {
    Sending now("picomite");
    now.Follow({{kNak, 0, now.one}, {kAck, 0, now.two}, {kAck, 0, kEot}, {kAck, 0, kLoud603}});
    Sending old("picomite-6.00");  // 1.5 s of silence before its prompt
    old.Follow({{kNak, 0, old.one}, {kAck, 0, old.two}, {kAck, 0, kEot}});
    old.Follow({{kAck, 1499, ""}, {"", 1, kLoud600}});
    Sending("picomite", 0).Follow({{kNak, 0, kEot}});
    Sending("picomite").Follow({{kCan, 10000, kCancelled + kLoud603}});
    Sending("armmite").Follow({{kCan, 999, ""}, {kCan, 1499, kAck}, {"", 1, kCancelled + "> "}});
    Sending later("armmite");
    later.Follow({{kNak, 0, later.one}, {kCan, 1500, kAck + kCancelled + "> "}});
}

TEST(XmodemSend, TheStartOfBothAges) {
    Sending now("picomite");
    // CRC-16 of 128 times "x".
    EXPECT_EQ(now.Say("C", 0), now.one.substr(0, 131) + "\x81\xd7");
    // A stray byte costs one of 60 tries.
    Sending("picomite")
        .Follow({{"z", 58999, ""}, {"", 201, "Error : Receiver did not respond\r\n" + kLoud603}});
    // Before 6.03 "C" is ignored, and one of 32 tries of 2 s.
    Sending("picomite-6.00")
        .Follow({{"C", 61999, ""}, {"", 1, kCan3}, {"", 1700, kNoAnswer + kLoud600}});
}

TEST(XmodemSend, ResendsDoubleStartAndLostEnds) {
    Sending now("picomite");
    now.Follow({{kNak + kNak, 0, now.one + now.one}, {"", 2999, ""}});  // nothing is flushed
    now.Follow({{"", 1, now.one}, {"?", 0, now.one}});                  // at once on any other byte
    for (int i = 5; i <= 25; ++i) EXPECT_EQ(now.Wait(3000), now.one) << i;
    EXPECT_EQ(now.Wait(3201), kManyErrors);
    Sending old("armmite");
    old.Follow({{kNak, 999, old.one}, {"", 1, old.one}});
    // EOT with no answer: a success for 6.03, an error before it.
    const std::string eots(10, '\x04');
    Sending lost("picomite", 1), lostOld("armmite", 1);
    lost.Say(kNak, 0);
    lost.Follow({{kAck, 29999, eots}, {"", 1, kLoud603}});
    lostOld.Say(kNak, 0);
    lostOld.Follow({{kAck, 21499, eots}, {"", 1, "Error : Error closing\r\n> "}});
}

}  // namespace
