// Fetching a file, on the virtual clock, from devices that follow a script.
#include "tests/xmodem/transfer_bench.h"

namespace {

const std::string kGiveUpBytes = std::string(5, kCanByte) + std::string(5, '\b');
const char kEcho[] = "XMODEM SEND \"d.bin\"\r\n";

std::string Block(int number) {
    return std::string(128, char('a' + number % 26));
}

class ReceiveBench : public TransferBench {
  protected:
    // Echoes the command, then gives one answer for each NAK or ACK that comes.
    void Answer(std::deque<std::string> answers) {
        script = std::move(answers);
        started = false;
        device = [this](int64_t, const std::string& came) { return Next(came); };
    }
    std::string Next(const std::string& came) {
        if (!started && came.find("SEND") != std::string::npos) {
            started = true;
            return kEcho;
        }
        if (!started || came.find_first_of({kAckByte, kNakByte}) == std::string::npos) return "";
        if (script.empty()) return "";
        const std::string next = script.front();
        script.pop_front();
        return next;
    }
    std::deque<std::string> script;
    bool started = false;
};

// Where block 256 is due its number on the wire is 0, and a repeated 255 counts as wrong.
TEST_F(ReceiveBench, BlocksOfBothSizesAreStoredWhole) {
    std::deque<std::string> frames;
    std::string content;
    for (int n = 1; n <= 258; ++n) {
        const std::string data(n % 3 ? 128 : 1024, char(n * 7));
        frames.push_back(FrameOf(n, data));
        if (n == 255) frames.push_back(frames.back());
        content += data;
    }
    frames.push_back({kEotByte});
    Answer(frames);
    const QString printed = Fetch();
    EXPECT_EQ(Content(), content);
    EXPECT_EQ(out, kNakByte + std::string(255, kAckByte) + kNakByte + std::string(4, kAckByte));
    EXPECT_TRUE(printed.startsWith(kEcho + QString("Recv: 10Recv: 20"))) << printed.toStdString();
    EXPECT_TRUE(printed.endsWith("Recv: 250Block # Error in #256Completed OK"));
    EXPECT_EQ(took, 200 + 100 + 260 * 50);  // the prescribed waits and nothing more

    Answer({{kEotByte}});  // no block at all
    EXPECT_TRUE(Fetch().endsWith("Completed OK"));
    EXPECT_TRUE(FileThere());
    EXPECT_EQ(Content(), "");
}

// One bad frame where block 2 is due, then the right ones.
TEST_F(ReceiveBench, EachFaultOfAFrameHasItsLineAndAnswer) {
    const std::string good = FrameOf(2, Block(2));
    std::string sum = good, number = good, complement = good, repeatedBadSum = FrameOf(1, Block(1));
    ++sum.back();
    number[1] = 9;
    complement[2] = 7;
    std::string both = number;
    both[50] ^= 1;
    repeatedBadSum[50] ^= 1;
    const struct {
        std::string frame;
        QString lines;
        std::string answer;
    } rows[] = {
        {good.substr(0, 131), "Short Block in #2", {kNakByte}},
        {good + "x", "Long Block in #2", {kNakByte}},
        {sum, "Checksum Error in #2", {kNakByte}},
        {number, "Block # Error in #2", {kNakByte}},
        {complement, "Complement Error in #2", {kNakByte}},
        {both, "Block # Error in #2Checksum Error in #2", {kNakByte, kNakByte}},
        {FrameOf(1, Block(1)), "Block # Repeated in #1", {kAckByte}},
        {repeatedBadSum, "Block # Repeated in #1Checksum Error in #2", {kAckByte, kNakByte}},
        {"\2" + good.substr(1), "Short Block in #2", {kNakByte}},  // a long block's head
    };
    for (const auto& row : rows) {
        Answer({FrameOf(1, Block(1)), row.frame, good, {kEotByte}});
        EXPECT_EQ(Fetch(), kEcho + row.lines + "Completed OK");
        EXPECT_EQ(out, std::string({kNakByte, kAckByte}) + row.answer + kAckByte + kAckByte);
        EXPECT_EQ(Content(), Block(1) + Block(2)) << row.lines.toStdString();
    }
}

TEST_F(ReceiveBench, SilenceAndThreeCansEndIt) {
    Answer({});
    EXPECT_EQ(Fetch(), QString(kEcho) + "Maximum Errors. Transfer Aborted.File transfer failed");
    EXPECT_EQ(out, std::string(11, kNakByte) + "\r" + kGiveUpBytes);
    EXPECT_EQ(took, 200 + 100 + 10 * 850 + 120);
    EXPECT_FALSE(FileThere());
    Answer({FrameOf(1, Block(1)), std::string(3, kCanByte)});
    EXPECT_EQ(Fetch(), QString(kEcho) + "Transfer Aborted by SenderFile transfer failed");
    EXPECT_EQ(out, "\x15\x06" + kGiveUpBytes + "\x18\x18\x18\x06");
    EXPECT_FALSE(FileThere());
}

// A stray byte brings a line ending and, before the first block, another NAK; after ten
// of them what came is judged as a frame.
TEST_F(ReceiveBench, StrayBytesAreAnsweredWithLineEndings) {
    for (const bool early : {true, false}) {
        Answer({early ? "Error" : FrameOf(1, Block(1)), "Error"});
        const int64_t limit = clock.Now() + 2600;
        device = [=](int64_t now, const std::string& came) {
            if (now > limit) JobOf(Direction::kReceive).abort = true;
            return Next(came);
        };
        const QString shown = early ? "Short Block in #1" : "Short Block in #2";
        EXPECT_EQ(Fetch(), kEcho + shown + shown + "File transfer failed");
        std::string looks, all = early ? std::string(1, kNakByte) : std::string{kNakByte, kAckByte};
        for (int i = 0; i < 10; ++i) looks += early ? std::string{'\r', kNakByte} : "\r";
        for (int i = 0; i < 2; ++i) all += looks + kNakByte;
        EXPECT_EQ(out, all);
        EXPECT_EQ(took, 200 + 100 + !early * 50 + 2 * 10 * (50 + 120));
    }
}

// More than the reply to the command can hold: the rest is dropped, and yet the first
// look sees it when nothing else has come.
TEST_F(ReceiveBench, WhatWaitsBehindTheEchoIsDroppedButSeen) {
    for (const bool quiet : {true, false}) {
        Answer({quiet ? "" : FrameOf(1, Block(1)), {kEotByte}});
        device = [this](int64_t, const std::string& came) {
            const bool command = came.find("SEND") != std::string::npos;
            return command ? started = true, std::string(5120, '.') + kEotByte : Next(came);
        };
        EXPECT_TRUE(Fetch().endsWith("Completed OK"));
        EXPECT_EQ(Content(), quiet ? "" : Block(1));
    }
}

// Its head when it is looked for, the rest later; then far more than fits.
TEST_F(ReceiveBench, AFrameInPieces) {
    for (const size_t rest : {32, 1040}) {
        const std::string good = FrameOf(1, Block(1)),
                          more = good.substr(100) + std::string(1008, 'x');
        Answer({"", {kEotByte}});
        if (rest > 32) Answer({"", good, {kEotByte}});
        device = [&, from = clock.Now() + 345](int64_t now, const std::string& came) {
            if (now == from) return good.substr(0, 100);
            return now == from + 10 ? more.substr(0, rest) : Next(came);
        };
        EXPECT_EQ(Fetch(),
                  QString(kEcho) + (rest == 32 ? "" : "Long Block in #1") + "Completed OK");
        EXPECT_EQ(Content(), Block(1));
    }
}

}  // namespace
