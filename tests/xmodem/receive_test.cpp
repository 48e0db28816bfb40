// Fetching a file, on the virtual clock, from devices that follow a script.
#include <QDir>

#include "tests/xmodem/transfer_bench.h"

namespace {

const std::string kEcho = "XMODEM SEND \"d.bin\"\r\n", kDone = "Completed OK";
const int64_t kLead = 200 + 100;  // the prescribed waits before the first look

std::string Block(int number) {
    return std::string(128, char('a' + number % 26));
}

struct ReceiveBench : TransferBench {
    // Says the first word to the command, then one for each NAK or ACK that comes. The end
    // of a frame comes behind the first look for it.
    Story FetchFrom(std::deque<std::string> script, int64_t abortAt = INT64_MAX) {
        line.reset();
        line = std::make_unique<FarEnd>();
        device = [=, start = clock.Now(), rest = std::string(), restAt = int64_t(0)](
                     int64_t now, const std::string& came) mutable {
            if (now - start > abortAt) JobOf(Direction::kReceive).abort = true;
            std::string word;
            if (now == restAt) return rest;
            if (script.empty() || came.find_first_of('D' + kNak + kAck) == came.npos) return word;
            word.swap(script.front());
            script.pop_front();
            if (word == "gone") AdoptSerialLink(0), word.clear();
            if (word[0] == 1 || word[0] == 2) {
                rest = word.substr(100);
                restAt = now + 59;
                word.resize(100);
            }
            return word;
        };
        return Transfer(Direction::kReceive);
    }
};

// Where block 256 is due its number on the wire is 0, and a repeated 255 counts as wrong.
TEST_F(ReceiveBench, BlocksOfBothSizesAreStoredWhole) {
    std::deque<std::string> script = {kEcho};
    std::string content, lines = kEcho;
    for (int n = 1; n <= 258; ++n) {
        const std::string data(n % 3 ? 128 : 1024, char(n * 7));
        script.push_back(FrameOf(n, data));
        if (n == 255) script.push_back(script.back());
        if (n % 10 == 0) lines += "Recv: " + std::to_string(n);
        content += data;
    }
    script.push_back(kEot);
    EXPECT_EQ(FetchFrom(script),
              Story(lines + "Block # Error in #256" + kDone,
                    kNak + std::string(255, kAckByte) + kNak + std::string(4, kAckByte), content,
                    kLead + 259 * 60 + 50));
}

// One bad frame where block 2 is due, then the right ones.
TEST_F(ReceiveBench, EachFaultOfAFrameHasItsLineAndAnswer) {
    const std::string first = FrameOf(1, Block(1)), good = FrameOf(2, Block(2));
    const auto with = [](std::string frame, int at, char byte) { return frame[at] = byte, frame; };
    const struct {
        std::string frame, lines, answer;
        int64_t time;
    } rows[] = {
        {good.substr(0, 131), "Short Block in #2", kNak, 1001},
        {good + "x", "Long Block in #2", kNak, 60},
        {good + std::string(1008, 'x'), "Long Block in #2", kNak, 60},  // far more than fits
        {with(good, 131, '?'), "Checksum Error in #2", kNak, 60},
        {with(good, 1, 9), "Block # Error in #2", kNak, 60},
        {with(good, 2, 7), "Complement Error in #2", kNak, 60},
        {first, "Block # Repeated in #1", kAck, 60},
        {with(first, 50, 1), "Block # Repeated in #1Checksum Error in #2", kAck + kNak, 60},
        {with(good, 0, 2), "Short Block in #2", kNak, 1001},  // a long block's head
    };
    for (const auto& row : rows)
        EXPECT_EQ(FetchFrom({kEcho, first, row.frame, good, kEot}),
                  Story(kEcho + row.lines + kDone, kNak + kAck + row.answer + kAck + kAck,
                        Block(1) + Block(2), kLead + 170 + row.time));
}

TEST_F(ReceiveBench, EndsOfATransfer) {
    const std::string first = FrameOf(1, Block(1)), cans = kCan + kCan + kCan;
    const std::string open = kNak + kAck, naks(11, kNakByte), none = "(none)", dots(5120, '.');
    const std::string giveUp = cans + kCan + kCan + "\b\b\b\b\b", failed = "File transfer failed";
    const std::string stopped = kEcho + "Transfer Aborted by Sender" + failed;
    const std::string silence = kEcho + "Maximum Errors. Transfer Aborted." + failed;
    // A stray byte brings a line ending and, before the first block, another NAK; after ten
    // of them what came is judged as a frame.
    const std::string early = kEcho + "Short Block in #1Short Block in #1" + failed;
    std::string strays = kNak;
    for (int i = 0; i < 20; ++i) strays += (i == 10 ? kNak : "") + '\r' + kNak;
    const struct {
        std::deque<std::string> script;
        std::string lines, answers, content;
        int64_t time, abortAt = INT64_MAX;
    } rows[] = {
        {{kEcho, kEot}, kEcho + kDone, open, "", 50},  // no block at all
        {{kEcho}, silence, naks + "\r" + giveUp, none, 10 * 850 + 120},
        {{kEcho, "", first, "gone"}, silence, kNak + open, none, 850 + 60 + 10 * 850 + 120},
        {{kEcho, first, cans}, stopped, open + giveUp + cans + kAck, none, 110},
        {{kEcho, "Error"}, early, strays + kNak, none, 3400, 2600},
        {{kEcho, first, "?", kEot},
         kEcho + "Short Block in #2" + kDone,
         open + std::string(10, '\r') + open,
         Block(1),
         1810},
        // More than the reply to the command can hold: the rest is dropped, and yet the first
        // look sees it when nothing else has come.
        {{dots + kEot}, dots + kDone, open, "", 50},
        {{dots + kEot, first, kEot}, dots + kDone, open + kAck, Block(1), 60 + 50},
    };
    for (const auto& row : rows)
        EXPECT_EQ(FetchFrom(row.script, row.abortAt),
                  Story(row.lines, row.answers, row.content, kLead + row.time));
    // The file that was there stands until all of the new one is, and nothing lies beside it.
    const Chosen complete(&Choices::replaceWhenComplete);
    Write("old");
    EXPECT_EQ(std::get<2>(FetchFrom({kEcho, first, cans})), "old");
    EXPECT_EQ(std::get<2>(FetchFrom({kEcho, first, kEot})), Block(1));
    EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("pc.bin"));
}

}  // namespace
