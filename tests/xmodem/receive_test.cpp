// Fetching a file, on the virtual clock, from devices that follow a script.
#include <QDir>

#include "tests/support/Chosen.h"
#include "tests/xmodem/transfer_bench.h"

namespace {

const std::string kEcho = "XMODEM SEND \"d.bin\"\r\n", kGiveUp = "\x18\x18\x18\x18\x18\b\b\b\b\b";
const std::string kNak(1, kNakByte), kAck(1, kAckByte), kEot(1, kEotByte);

std::string Block(int number) {
    return std::string(128, char('a' + number % 26));
}

class ReceiveBench : public TransferBench {
  protected:
    // Says the first word to the command, then one for each NAK or ACK that comes. The end
    // of a frame comes behind the first look for it.
    QString FetchFrom(std::deque<std::string> script, int64_t abortAt = INT64_MAX) {
        const std::string ends = {'D', kNakByte, kAckByte};
        device = [=, start = clock.Now(), rest = std::string(), restAt = int64_t(0)](
                     int64_t now, const std::string& came) mutable {
            if (now - start > abortAt) JobOf(Direction::kReceive).abort = true;
            std::string word;
            if (now == restAt) return rest;
            if (script.empty() || came.find_first_of(ends) == came.npos) return word;
            word.swap(script.front());
            script.pop_front();
            if (word == "gone") AdoptSerialLink(0), word.clear();
            if (word[0] == 1 || word[0] == 2) {
                rest = word.substr(100);
                restAt = now + kRestLate;
                word.resize(100);
            }
            return word;
        };
        return Fetch();
    }
    static constexpr int kRestLate = 59;
};

// Where block 256 is due its number on the wire is 0, and a repeated 255 counts as wrong.
TEST_F(ReceiveBench, BlocksOfBothSizesAreStoredWhole) {
    std::deque<std::string> script = {kEcho};
    std::string content;
    for (int n = 1; n <= 258; ++n) {
        const std::string data(n % 3 ? 128 : 1024, char(n * 7));
        script.push_back(FrameOf(n, data));
        if (n == 255) script.push_back(script.back());
        content += data;
    }
    script.push_back(kEot);
    const QString printed = FetchFrom(script);
    EXPECT_EQ(Content(), content);
    EXPECT_EQ(out, kNak + std::string(255, kAckByte) + kNak + std::string(4, kAckByte));
    EXPECT_TRUE(printed.startsWith((kEcho + "Recv: 10Recv: 20").data())) << printed.toStdString();
    EXPECT_TRUE(printed.endsWith("Recv: 250Block # Error in #256Completed OK"));
    EXPECT_EQ(took, 200 + 100 + 259 * 60 + 50);  // the prescribed waits and nothing more
}

// One bad frame where block 2 is due, then the right ones.
TEST_F(ReceiveBench, EachFaultOfAFrameHasItsLineAndAnswer) {
    const std::string first = FrameOf(1, Block(1)), good = FrameOf(2, Block(2));
    const auto with = [](std::string frame, int at, char byte) { return frame[at] = byte, frame; };
    const struct {
        std::string frame, lines, answer;
    } rows[] = {
        {good.substr(0, 131), "Short Block in #2", kNak},
        {good + "x", "Long Block in #2", kNak},
        {good + std::string(1008, 'x'), "Long Block in #2", kNak},  // far more than fits
        {with(good, 131, '?'), "Checksum Error in #2", kNak},
        {with(good, 1, 9), "Block # Error in #2", kNak},
        {with(good, 2, 7), "Complement Error in #2", kNak},
        {first, "Block # Repeated in #1", kAck},
        {with(first, 50, 1), "Block # Repeated in #1Checksum Error in #2", kAck + kNak},
        {with(good, 0, 2), "Short Block in #2", kNak},  // a long block's head
    };
    for (const auto& row : rows) {
        const QString printed = FetchFrom({kEcho, first, row.frame, good, kEot});
        EXPECT_EQ(printed.toStdString(), kEcho + row.lines + "Completed OK");
        EXPECT_EQ(out, kNak + kAck + row.answer + kAck + kAck);
        EXPECT_EQ(Content(), Block(1) + Block(2)) << row.lines;
    }
}

TEST_F(ReceiveBench, EndsOfATransfer) {
    // A stray byte brings a line ending and, before the first block, another NAK; after ten
    // of them what came is judged as a frame.
    const std::string first = FrameOf(1, Block(1)), cans(3, kCanByte);
    const std::string open = kNak + kAck, naks(11, kNakByte);
    const std::string stopped = "Transfer Aborted by Sender";
    const std::string dots = std::string(5120, '.') + kEot, early = "Short Block in #1";
    std::string asking;
    for (int i = 0; i < 10; ++i) asking += '\r' + kNak;
    asking += kNak;
    const std::string silence = "Maximum Errors. Transfer Aborted.";
    const std::string failed = "File transfer failed", done = "Completed OK", gone = "(none)";
    const struct {
        std::deque<std::string> script;
        std::string lines, answers, content;
        int64_t time, abortAt = INT64_MAX;
    } rows[] = {
        {{kEcho, kEot}, done, open, "", 50},  // no block at all
        {{kEcho}, silence + failed, naks + "\r" + kGiveUp, gone, 10 * 850 + 120},
        {{kEcho, first, "gone"}, silence + failed, open, gone, 60 + 10 * 850 + 120},
        {{kEcho, first, cans}, stopped + failed, open + kGiveUp + cans + kAck, gone, 110},
        {{kEcho, "Error"}, early + early + failed, kNak + asking + asking, gone, 3400, 2600},
        // More than the reply to the command can hold: the rest is dropped, and yet the first
        // look sees it when nothing else has come.
        {{dots}, done, open, "", 50},
        {{dots, first, kEot}, done, open + kAck, Block(1), 60 + 50},
    };
    for (const auto& row : rows) {
        const std::string printed = FetchFrom(row.script, row.abortAt).toStdString();
        const size_t lines = std::min(printed.size(), row.lines.size());
        EXPECT_EQ(printed.substr(printed.size() - lines), row.lines);
        EXPECT_EQ(out, row.answers) << row.lines;
        EXPECT_EQ(Content(), row.content) << row.lines;
        EXPECT_EQ(took, 200 + 100 + row.time) << row.lines;
        Relink();
    }
}

// The file that was there stands until all of the new one is, and nothing lies beside it.
TEST_F(ReceiveBench, FilesThatAreReplacedWhenComplete) {
    const Chosen complete(&Choices::replaceWhenComplete);
    Write("old");
    for (const std::string& end : {std::string(3, kCanByte), kEot}) {
        FetchFrom({kEcho, FrameOf(1, Block(1)), end});
        EXPECT_EQ(Content(), end == kEot ? Block(1) : "old");
        EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("pc.bin"));
        Relink();
    }
}

}  // namespace
