// XMODEM on a stepped clock: the habits of both firmware ages, and their faults.
#include "tests/simulator/board_bench.h"

namespace {

const std::string kNak = "\x15", kAck = "\x06", kEot = "\x04", kCan = "\x18";
const std::string kCan3 = "\x18\x18\x18";

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

// The board asks for blocks 1 to `last` and gets them.
void SendBlocks(BoardBench& bench, size_t first, size_t last) {
    for (size_t i = first; i <= last; ++i) ASSERT_EQ(bench.Say(Block(i), 2), kAck) << i;
}

BoardBench* StartReceive(const char* family, const char* name = "f.bas") {
    auto* bench = new BoardBench(family);
    const std::string command = std::string("XMODEM RECEIVE \"") + name + "\"\r";
    EXPECT_EQ(bench->Say(command, 0), command + "\n" + kNak);
    return bench;
}

std::string Stored(BoardBench& bench, const char* name = "f.bas") {
    std::string data;
    return bench.board.ReadFile(name, &data) ? data : "(none)";
}

}  // namespace

TEST(XmodemReceive, AWholeFileKeepsItsPadding) {
    for (const char* family : {"picomite", "cmm2"}) {
        std::unique_ptr<BoardBench> bench(StartReceive(family));
        EXPECT_EQ(bench->Say(Block(1), 1), "");  // the write comes first
        EXPECT_EQ(bench->Wait(1), kAck);
        EXPECT_EQ(bench->Say(Frame(2, "end" + std::string(125, '\x1a')), 2), kAck);
        // EOT is answered after 1.5 s of silence; the prompt follows at once.
        EXPECT_EQ(bench->Say(kEot, 1499), "");
        const std::string end = bench->Wait(1);
        EXPECT_EQ(end.substr(0, 7), kAck + "\x1b[?25h");
        EXPECT_EQ(Stored(*bench), Data(1) + "end" + std::string(125, '\x1a'));
    }
}

TEST(XmodemReceive, TheStartAsks32TimesAndStrayBytesCostTries) {
    std::unique_ptr<BoardBench> bench(StartReceive("picomite"));
    EXPECT_EQ(bench->Wait(1999), "");
    EXPECT_EQ(bench->Wait(1), kNak);
    EXPECT_EQ(bench->Say("\n", 0), kNak);  // at once
    std::string rest;
    EXPECT_EQ(bench->TimeToNextByte(&rest), 2000);
    EXPECT_EQ(rest, kNak);
    for (int i = 5; i <= 32; ++i) EXPECT_EQ(bench->Wait(2000), kNak) << i;
    EXPECT_EQ(bench->Wait(1999), "");
    EXPECT_EQ(bench->Wait(201), kCan3 + "Error : Remote did not respond\r\n" + kLoud603);
}

TEST(XmodemReceive, AfterTheFirstBlockItWaitsInSilence) {
    std::unique_ptr<BoardBench> bench(StartReceive("picomite"));
    SendBlocks(*bench, 1, 1);
    EXPECT_EQ(bench->Wait(63990), "");  // 32 tries of 2 s
    EXPECT_EQ(bench->Wait(300), kCan3 + "Error : Remote did not respond\r\n" + kLoud603);
    EXPECT_EQ(Stored(*bench), Data(1));  // the partial file stays
}

TEST(XmodemReceive, BadBlocksRepeatsAndCancel) {
    std::unique_ptr<BoardBench> bench(StartReceive("picomite"));
    EXPECT_EQ(bench->Say(Frame(0, Data(0)), 2), kAck);  // a YMODEM header is ignored
    std::string bad = Block(1);
    bad[60] ^= 1;
    EXPECT_EQ(bench->Say(bad, 1499), "");  // corrupt: 1.5 s
    EXPECT_EQ(bench->Wait(1), kNak);
    EXPECT_EQ(bench->Say(Block(1).substr(0, 50), 2499), "");  // short: 1 s more
    EXPECT_EQ(bench->Wait(1), kNak);
    SendBlocks(*bench, 1, 2);
    EXPECT_EQ(bench->Say(Block(2), 2), kAck);     // repeated: acknowledged, not written
    EXPECT_EQ(bench->Say(Block(4), 1500), kNak);  // out of order
    EXPECT_EQ(bench->Say("\x02", 2), "");         // STX is noise, with no NAK any more
    SendBlocks(*bench, 3, 3);
    // A host that repeats EOT every second is never answered.
    for (int i = 0; i < 5; ++i) EXPECT_EQ(bench->Say(kEot, 1000), "");
    EXPECT_EQ(bench->Wait(500).substr(0, 1), kAck);
    EXPECT_EQ(Stored(*bench), Data(1) + Data(2) + Data(3));

    std::unique_ptr<BoardBench> other(StartReceive("picomite-6.00"));
    EXPECT_EQ(other->Say(kCan, 1499), "");
    EXPECT_EQ(other->Wait(201), kAck + "Error : Cancelled by remote\r\n\x1b[?25h> ");
    // Ctrl-C is data in a transfer.
    std::unique_ptr<BoardBench> third(StartReceive("picomite"));
    EXPECT_EQ(third->Say("\x03", 0), kNak);
    for (int i = 0; i < 25; ++i) EXPECT_EQ(third->Say(Block(0), 2), kAck) << i;
    EXPECT_EQ(third->Say(Block(0), 1499), "");
    EXPECT_EQ(third->Wait(201), kCan3 + "Error : Too many errors\r\n" + kLoud603);
}

TEST(XmodemReceive, ARepeatedBlock255IsRefusedForEver) {
    std::unique_ptr<BoardBench> bench(StartReceive("picomite"));
    SendBlocks(*bench, 1, 255);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(bench->Say(Block(255), 1500), kNak);
    EXPECT_EQ(bench->Say(Frame(0, Data(5)), 2), kAck);  // block 256 is the way on
    bench->Say(kEot, 2000);
    EXPECT_EQ(Stored(*bench).size(), 256u * 128);
    EXPECT_EQ(Stored(*bench).substr(255 * 128), Data(5));
}

TEST(XmodemReceive, IntoProgramMemory) {
    BoardBench bench;
    EXPECT_EQ(bench.Say("XMODEM R\r", 0), "XMODEM R\r\n" + kNak);
    std::string text = "PRINT 1\r\nPRINT 2";
    text.resize(128, '\0');
    EXPECT_EQ(bench.Say(Frame(1, text), 2), kAck);
    EXPECT_EQ(bench.Say(kEot), kAck + "Saved 28 bytes\r\n" + kLoud603);
    EXPECT_EQ(bench.board.ProgramText(), "PRINT 1\nPRINT 2\n");
    // Program memory goes out with its last LF cut, on old firmware the CR too.
    EXPECT_EQ(bench.Say("XMODEM S\r" + kNak, 0).substr(13, 20),
              std::string("PRINT 1\r\nPRINT 2\r") + std::string(3, '\0'));
    BoardBench older("armmite");
    older.Say("AUTOSAVE\rPRINT 1\r\x1a");
    EXPECT_EQ(older.Say("XMODEM S\r" + kNak, 0).substr(13, 9), std::string("PRINT 1\0\0", 9));
    BoardBench cmm2("cmm2");
    EXPECT_EQ(cmm2.Say("XMODEM R\r").substr(10, 8), "Syntax\r\n");
}

namespace {

struct SendBench {
    explicit SendBench(const char* family, size_t size = 200) : bench(family) {
        bench.board.AddFile("f.bas", std::string(size, 'x'), 0);
        const std::string command = "XMODEM SEND \"f.bas\"\r";
        EXPECT_EQ(bench.Say(command, 0), command + "\n");
    }
    BoardBench bench;
    const std::string one = Frame(1, std::string(128, 'x'));
    const std::string two = Frame(2, std::string(72, 'x') + std::string(56, '\0'));
};

}  // namespace

TEST(XmodemSend, AWholeFileIsPaddedWithZeros) {
    SendBench now("picomite");
    EXPECT_EQ(now.bench.Say(kNak, 0), now.one);
    EXPECT_EQ(now.bench.Say(kAck, 0), now.two);
    EXPECT_EQ(now.bench.Say(kAck, 0), kEot);
    EXPECT_EQ(now.bench.Say(kAck, 0), kLoud603);  // the prompt at once
    SendBench old("picomite-6.00");
    old.bench.Say(kNak, 0);
    old.bench.Say(kAck, 0);
    EXPECT_EQ(old.bench.Say(kAck, 0), kEot);
    EXPECT_EQ(old.bench.Say(kAck, 1499), "");  // 1.5 s of silence first
    EXPECT_EQ(old.bench.Wait(1), "\x1b[?25h> ");
    SendBench empty("picomite", 0);
    EXPECT_EQ(empty.bench.Say(kNak, 0), kEot);
    BoardBench none;
    EXPECT_EQ(none.Say("XMODEM SEND \"no\"\r"),
              "XMODEM SEND \"no\"\r\nError : Could not find the file\r\n" + kLoud603);
}

TEST(XmodemSend, TheStartOfBothAges) {
    SendBench now("picomite");
    // CRC-16 of 128 times "x".
    const std::string crcBlock = now.bench.Say("C", 0);
    EXPECT_EQ(crcBlock.substr(0, 131), now.one.substr(0, 131));
    EXPECT_EQ(crcBlock.substr(131), std::string("\x81\xd7", 2));
    SendBench silent("picomite");
    EXPECT_EQ(silent.bench.Say("z", 58999), "");  // a stray byte costs one of 60 tries
    EXPECT_EQ(silent.bench.Wait(201), "Error : Receiver did not respond\r\n" + kLoud603);
    SendBench old("picomite-6.02");
    EXPECT_EQ(old.bench.Say("C", 61999), "");  // ignored, and one of 32 tries of 2 s
    EXPECT_EQ(old.bench.Wait(1), kCan3);
    EXPECT_EQ(old.bench.Wait(1700), "Error : Remote did not respond\r\n\x1b[?25h\x1b[97;40m> ");
}

TEST(XmodemSend, ResendsDoubleStartAndLostEnds) {
    SendBench now("picomite");
    EXPECT_EQ(now.bench.Say(kNak + kNak, 0), now.one + now.one);  // nothing is flushed
    EXPECT_EQ(now.bench.Wait(2999), "");
    EXPECT_EQ(now.bench.Wait(1), now.one);
    EXPECT_EQ(now.bench.Say("?", 0), now.one);  // at once on any other byte
    for (int i = 5; i <= 25; ++i) EXPECT_EQ(now.bench.Wait(3000), now.one) << i;
    EXPECT_EQ(now.bench.Wait(3201), kCan3 + "Error : Too many errors\r\n" + kLoud603);
    SendBench old("armmite");
    EXPECT_EQ(old.bench.Say(kNak, 999), old.one);
    EXPECT_EQ(old.bench.Wait(1), old.one);
    // EOT with no answer: a success for 6.03, an error before it.
    SendBench lost("picomite", 1);
    lost.bench.Say(kNak, 0);
    EXPECT_EQ(lost.bench.Say(kAck, 29999), std::string(10, '\x04'));
    EXPECT_EQ(lost.bench.Wait(1), kLoud603);
    SendBench lostOld("armmite", 1);
    lostOld.bench.Say(kNak, 0);
    EXPECT_EQ(lostOld.bench.Say(kAck, 21499), std::string(10, '\x04'));
    EXPECT_EQ(lostOld.bench.Wait(1), "Error : Error closing\r\n> ");
}

TEST(XmodemSend, Cancel) {
    SendBench now("picomite");
    EXPECT_EQ(now.bench.Say(kCan), "Error : Cancelled by remote\r\n" + kLoud603);
    SendBench old("armmite");
    EXPECT_EQ(old.bench.Say(kCan, 999), "");
    EXPECT_EQ(old.bench.Say(kCan, 1499), kAck);
    EXPECT_EQ(old.bench.Wait(1), "Error : Cancelled by remote\r\n> ");
    SendBench later("armmite");
    later.bench.Say(kNak, 0);
    EXPECT_EQ(later.bench.Say(kCan, 1500), kAck + "Error : Cancelled by remote\r\n> ");
}
