// Storing a file, on the virtual clock, on devices that follow a rule.
#include "tests/support/StartState.h"
#include "tests/xmodem/transfer_bench.h"
#include "xmodem/Frame.h"
#include "xmodem/PcFile.h"

namespace {

const bool startState = KeepStartState(PutBackXmodem);

// Asks once the command came, then answers each frame and each EOT.
class SendBench : public TransferBench {
  protected:
    SendBench() {
        device = [this](int64_t now, const std::string& came) -> std::string {
            if (came.find("RECEIVE") != came.npos) {
                askAt = now + 700;
                return came + "\n\xC3\x7F\t";
            }
            if (now == askAt) return ask;
            if (came.size() == 132 && came[0] == 1) return onFrame(came);
            return came == std::string(1, kEotByte) ? onEot : "";
        };
    }
    int64_t askAt = -1;
    std::string ask = {kNakByte}, onEot = {kAckByte};
    std::function<std::string(const std::string&)> onFrame = [](const std::string&) {
        return std::string(1, kAckByte);
    };
};

TEST_F(SendBench, TheHandshake) {
    const struct {
        std::string ask;
        bool starts;
        int64_t wait;
    } rows[] = {
        {{kNakByte}, true, 0}, {"C", true, 0},       {{kCanByte}, false, 0},
        {"", false, 2900},     {"?", false, 2900},   {{kCanByte, kNakByte}, true, 0},
        {"NAK?", false, 2900}, {"\x15?", true, 100},  // the first byte is still in sight
    };
    for (const auto& row : rows) {
        ask = row.ask;
        const QString end = row.starts ? "Transfer completed OK!" : "Transfer failed to start!";
        EXPECT_EQ(Store("x"), "Blocks: 1XMODEM RECEIVE \"d.bin\"\x7F" + end) << row.ask;
        EXPECT_EQ(took, 1000 + row.wait + (row.starts ? 700 : 0) + 1200) << row.ask;
        EXPECT_EQ(out.empty(), !row.starts);
    }
    // In CRC mode the check covers the complement and the data but its last byte, and only
    // its high byte goes out.
    const auto crc = [](const std::string& bytes) {
        return Crc16(reinterpret_cast<const uint8_t*>(bytes.data()), int(bytes.size()));
    };
    EXPECT_EQ(crc("123456789"), 0x31C3);  // the check value of CRC-16/XMODEM
    const std::string data = "123456789" + std::string(118, '\0');
    ask = "C";
    Store(data + "z");
    EXPECT_EQ(out, "\1\1\xFE" + data + "z" + char(crc("\xFE" + data) >> 8) + kEotByte);
}

// What the device says to the frames of a file of two blocks, the last word again and
// again, and then to EOT.
TEST_F(SendBench, AnswersToABlock) {
    const std::string lone = {kCanByte, 'x'}, stop(3, kCanByte), nak(1, kNakByte), ack(1, kAckByte);
    const struct {
        std::deque<std::string> answers;
        std::string toEot;
        size_t frames, eots;  // that go out; no EOT in a transfer that failed
        int64_t time;         // of the block loop and the closing
    } rows[] = {
        {{nak, ack}, ack, 3, 1, 250 + 400 + 500},
        {{"", "noise", nak, ack}, ack, 5, 1, 750 + 400 + 500},
        {{ack}, "", 2, 1, 400 + 500},  // the last block's ACK is taken for that of EOT
        {{ack}, nak, 2, 4, 400 + 4 * 5000},
        {{nak}, ack, 20, 0, 19 * 250 + 200},
        {{""}, ack, 20, 0, 19 * 250 + 200},
        {{nak, stop}, ack, 2, 0, 250 + 200},
        {{stop, ack}, ack, 1, 0, 200},
        {{stop.substr(1) + "x", ack}, ack, 3, 1, 600 + 500},
        // The time limit takes each block as acknowledged.
        {{lone}, "", 102, 4, 102 * 200 + 4 * 5000},
    };
    for (const auto& row : rows) {
        std::deque<std::string> answers = row.answers;
        onEot = row.toEot;
        onFrame = [&](const std::string&) {
            const std::string answer = answers.front();
            if (answers.size() > 1) answers.pop_front();
            return answer;
        };
        const QString end = row.eots ? "Transfer completed OK!" : "Transfer failed!";
        EXPECT_TRUE(Store(std::string(200, 'b')).endsWith(end));
        EXPECT_EQ(out.substr(std::min(out.size(), row.frames * 132)),
                  row.eots ? std::string(row.eots, kEotByte) : std::string(5, kCanByte));
        EXPECT_EQ(took, 1000 + row.time + 1200) << row.frames;
    }
}

// Each frame of files around a block's size, and of one whose block numbers pass 255.
TEST_F(SendBench, FilesGoInWholeBlocks) {
    for (const int size : {0, 1, 127, 128, 129, 33000}) {
        std::string content, frames;
        for (int i = 0; i < size; ++i) content += char(i * 31 + i / 251);
        const int blocks = (size + 127) / 128;
        QString lines = QString("Blocks: %1XMODEM RECEIVE \"d.bin\"\x7F").arg(blocks);
        for (int n = 10; n <= blocks; n += 10)
            lines += QString("Sent: %1/%2\x1b[1A").arg(n).arg(blocks);
        EXPECT_EQ(Store(content), lines + "Transfer completed OK!");
        content.resize(std::max(blocks, 1) * 128);
        for (size_t at = 0; at < content.size(); at += 128)
            frames += FrameOf(at / 128 + 1, content.substr(at, 128));
        EXPECT_TRUE(out == frames + kEotByte) << size;
        EXPECT_EQ(took, 1000 + std::max(blocks, 1) * 200 + 500 + 1200);
    }
}

TEST_F(SendBench, AFileAboveTheLimitIsNotAnnounced) {
    Write("");
    ASSERT_EQ(truncate("pc.bin", kLargestSentFile + 1), 0);
    EXPECT_EQ(Transfer(Direction::kSend), "Blocks: 524289Transfer failed to start!");
    EXPECT_EQ(out, "");
}

}  // namespace
