// Storing a file, on the virtual clock, on devices that follow a rule.
#include <sys/stat.h>

#include "tests/xmodem/transfer_bench.h"
#include "xmodem/PcFile.h"

namespace {

const bool startState = KeepStartState(PutBackXmodem);
const std::string kHead = "XMODEM RECEIVE \"d.bin\"\x7F", kStored = "Transfer completed OK!";
const std::string kNotStarted = "Transfer failed to start!";

// Asks once the command came, then answers each frame and each EOT.
struct SendBench : TransferBench {
    SendBench() {
        device = [this](int64_t now, const std::string& came) -> std::string {
            if (came.find("RECEIVE") != came.npos) {
                askAt = now + 700;
                return came + "\n\xC3\x7F\t";
            }
            if (now == askAt) return ask;
            if (came.size() == 132 && came[0] == 1) return onFrame();
            return came == kEot ? onEot : "";
        };
    }
    int64_t askAt = -1;
    std::string ask = kNak, onEot = kAck;
    std::function<std::string()> onFrame = [] { return kAck; };
};

TEST_F(SendBench, TheHandshake) {
    const struct {
        std::string ask;
        bool starts;
        int64_t wait;
    } rows[] = {
        {kNak, true, 0},       {"C", true, 0},          {kCan, false, 0},
        {"", false, 2900},     {"?", false, 2900},      {kCan + kNak, true, 0},
        {"NAK?", false, 2900}, {kNak + "?", true, 100},  // the first byte is still in sight
    };
    for (const auto& row : rows) {
        ask = row.ask;
        // In CRC mode the check covers the complement and the data but its last byte, and only
        // its high byte goes out.
        const std::string data = "123456789" + std::string(118, '\0') + "z";
        const std::string frame = ask == "C" ? "\1\1\xFE" + data + '\x31' : FrameOf(1, data);
        EXPECT_EQ(Store(data), Story("Blocks: 1" + kHead + (row.starts ? kStored : kNotStarted),
                                     row.starts ? frame + kEot : "", "",
                                     1000 + row.wait + (row.starts ? 700 : 0) + 1200))
            << row.ask;
    }
}

// What the device says to the frames of a file of two blocks, the last word again and
// again, and then to EOT.
TEST_F(SendBench, AnswersToABlock) {
    const std::string lone = kCan + "x", stop = kCan + kCan + kCan;
    const struct {
        std::deque<std::string> answers;
        std::string toEot;
        int first, second, eots;  // that go out; no EOT in a transfer that failed
        int64_t time;             // of the block loop and the closing
    } rows[] = {
        {{kNak, kAck}, kAck, 2, 1, 1, 250 + 400 + 500},
        {{"", "noise", kNak, kAck}, kAck, 4, 1, 1, 750 + 400 + 500},
        {{kAck}, "", 1, 1, 1, 400 + 500},  // the last block's ACK is taken for that of EOT
        {{kAck}, kNak, 1, 1, 4, 400 + 4 * 5000},
        {{kNak}, kAck, 20, 0, 0, 19 * 250 + 200},
        {{""}, kAck, 20, 0, 0, 19 * 250 + 200},
        {{kNak, stop}, kAck, 2, 0, 0, 250 + 200},
        {{stop, kAck}, kAck, 1, 0, 0, 200},
        {{kCan + kCan + "x", kAck}, kAck, 2, 1, 1, 600 + 500},
        // The time limit takes each block as acknowledged.
        {{lone}, "", 51, 51, 4, 102 * 200 + 4 * 5000},
    };
    for (const auto& row : rows) {
        std::deque<std::string> answers = row.answers;
        onEot = row.toEot;
        onFrame = [&] {
            const std::string answer = answers.front();
            if (answers.size() > 1) answers.pop_front();
            return answer;
        };
        const std::string content(200, 'b');
        std::string sent;
        for (int i = 0; i < row.first; ++i) sent += FrameOf(1, content.substr(0, 128));
        for (int i = 0; i < row.second; ++i) sent += FrameOf(2, Padded(content.substr(128)));
        sent += row.eots ? std::string(row.eots, kEotByte) : stop + kCan + kCan;
        EXPECT_EQ(Store(content),
                  Story("Blocks: 2" + kHead + (row.eots ? kStored : "Transfer failed!"), sent, "",
                        1000 + row.time + 1200));
    }
}

// Files around a block's size, and one whose block numbers pass 255.
TEST_F(SendBench, FilesGoInWholeBlocks) {
    for (const int size : {0, 1, 127, 128, 129, 33000}) {
        std::string content, frames;
        for (int i = 0; i < size; ++i) content += char(i * 31 + i / 251);
        const int blocks = (size + 127) / 128, sent = std::max(blocks, 1);
        std::string lines = "Blocks: " + std::to_string(blocks) + kHead;
        Write(content);
        content.resize(sent * 128);
        for (int n = 1; n <= sent; ++n) {
            if (n % 10 == 0)
                lines += "Sent: " + std::to_string(n) + '/' + std::to_string(blocks) + "\x1b[1A";
            frames += FrameOf(n, content.substr(n * 128 - 128, 128));
        }
        EXPECT_EQ(Transfer(Direction::kSend),
                  Story(lines + kStored, frames + kEot, "", 1000 + sent * 200 + 500 + 1200));
    }
    // What is no file goes as an empty one; above the limit nothing is announced.
    EXPECT_EQ(unlink("pc.bin") + mkfifo("pc.bin", 0600), 0);
    EXPECT_EQ(std::get<0>(Transfer(Direction::kSend)), "Blocks: 0" + kHead + kStored);
    EXPECT_EQ(unlink("pc.bin"), 0);
    ask = kCan;
    for (const bool above : {false, true}) {
        Write("");
        EXPECT_EQ(truncate("pc.bin", kLargestSentFile + above), 0);
        EXPECT_EQ(std::get<0>(Transfer(Direction::kSend)),
                  (above ? "Blocks: 524289" : "Blocks: 524288" + kHead) + kNotStarted);
    }
}

}  // namespace
