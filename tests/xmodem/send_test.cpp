// Storing a file, on the virtual clock, on devices that follow a rule.
#include "tests/xmodem/transfer_bench.h"
#include "xmodem/Frame.h"
#include "xmodem/PcFile.h"

namespace {

const std::string kCancel(5, kCanByte);
const char kStarted[] = "XMODEM RECEIVE \"d.bin\"";

// Prompts with NAK once the command came, then answers each frame and each EOT.
class SendBench : public TransferBench {
  protected:
    SendBench() {
        device = [this](int64_t now, const std::string& came) { return Next(now, came); };
    }
    std::string Next(int64_t now, const std::string& came) {
        if (came.find("RECEIVE") != std::string::npos) {
            askAt = now + 700;
            return came + "\n\xC3\x7F\t";
        }
        if (now == askAt) return ask;
        if (came.size() == 132 && came[0] == 1) return onFrame(came);
        return came == std::string(1, kEotByte) ? onEot : "";
    }
    int64_t askAt = -1;
    std::string ask = {kNakByte};
    std::function<std::string(const std::string&)> onFrame = [](const std::string&) {
        return std::string(1, kAckByte);
    };
    std::string onEot = {kAckByte};
};

QString Opening(int blocks) {
    return "Blocks: " + QString::number(blocks) + kStarted + "\x7F";
}

TEST_F(SendBench, BlocksAndLinesForEachSize) {
    for (const int size : {0, 1, 128, 129, 640, 65 * 128}) {
        const std::string content(size, 'q');
        const int blocks = (size + 127) / 128;
        QString lines = Opening(blocks);
        for (int n = 10; n <= blocks; n += 10)
            lines += QString("Sent: %1/%2\x1b[1A").arg(n).arg(blocks);
        EXPECT_EQ(Store(content), lines + "Transfer completed OK!");
        std::string frames;
        const std::string padded = size ? Padded(content) : std::string(128, '\0');
        for (size_t n = 0; n * 128 < padded.size(); ++n)
            frames += FrameOf(n + 1, padded.substr(n * 128, 128));
        EXPECT_EQ(out, frames + kEotByte) << size;
        EXPECT_EQ(took, 1000 + int(padded.size() / 128) * 200 + 500 + 1200);
    }
}

TEST_F(SendBench, TheHandshake) {
    const struct {
        std::string ask;
        bool starts;
        int64_t wait;
    } rows[] = {
        {{kNakByte}, true, 0}, {"C", true, 0},     {{kCanByte}, false, 0},
        {"", false, 2900},     {"?", false, 2900}, {{kCanByte, kNakByte}, true, 0},
        {"NAK?", false, 2900},
    };
    for (const auto& row : rows) {
        ask = row.ask;
        const QString printed = Store("x");
        EXPECT_EQ(printed.endsWith("completed OK!"), row.starts) << row.ask;
        EXPECT_EQ(printed.endsWith("Transfer failed to start!"), !row.starts);
        EXPECT_EQ(took, 1000 + row.wait + (row.starts ? 700 : 0) + 1200) << row.ask;
        EXPECT_EQ(out.empty(), !row.starts);
    }
    // Sleeps that run long: the time limit starts the transfer without a word.
    ask = "";
    clock.late = 10;
    EXPECT_TRUE(Store("x").endsWith("Transfer completed OK!"));
    EXPECT_EQ(out.size(), 133u);
}

// In CRC mode the check covers the complement and the data but its last byte, and only
// its high byte goes out.
TEST_F(SendBench, TheFrameInCrcMode) {
    const auto crc = [](const std::string& bytes) {
        return Crc16(reinterpret_cast<const uint8_t*>(bytes.data()), int(bytes.size()));
    };
    EXPECT_EQ(crc("123456789"), 0x31C3);  // the check value of CRC-16/XMODEM
    ask = "C";
    const std::string content = "123456789" + std::string(118, '\0') + "z";
    Store(content);
    EXPECT_EQ(out,
              "\1\1\xFE" + content + char(crc("\xFE" + content.substr(0, 127)) >> 8) + kEotByte);
}

// What the device says to the frames of a file of two blocks.
TEST_F(SendBench, AnswersToABlock) {
    const std::string lone = {kCanByte, 'x'}, stop(3, kCanByte), nak(1, kNakByte);
    const struct {
        std::deque<std::string> answers;  // the last one is repeated
        size_t frames;
        int64_t time;  // of the block loop
        bool completes;
    } rows[] = {
        {{nak, {kAckByte}}, 3, 250 + 400, true},
        {{"", "noise", nak, {kAckByte}}, 5, 750 + 400, true},
        {{nak}, 20, 19 * 250 + 200, false},
        {{""}, 20, 19 * 250 + 200, false},
        {{nak, stop}, 2, 250 + 200, false},
        {{stop, {kAckByte}}, 1, 200, false},
        // Stale bytes make a lone CAN the third of three.
        {{std::string("x\x18\x18"), {kCanByte}}, 2, 250 + 200, false},
        // The time limit takes each block as acknowledged; EOT is never answered.
        {{lone}, 102, 102 * 200, true},
    };
    for (const auto& row : rows) {
        std::deque<std::string> answers = row.answers;
        onEot = row.frames > 100 ? "" : std::string(1, kAckByte);
        onFrame = [&](const std::string&) {
            const std::string answer = answers.front();
            if (answers.size() > 1) answers.pop_front();
            return answer;
        };
        const QString printed = Store(std::string(200, 'b'));
        const std::string end =
            row.completes ? std::string(row.frames > 100 ? 4 : 1, kEotByte) : kCancel;
        EXPECT_EQ(out.size(), row.frames * 132 + end.size());
        EXPECT_EQ(out.substr(row.frames * 132), end);
        EXPECT_TRUE(
            printed.endsWith(row.completes ? "Transfer completed OK!" : "Transfer failed!"));
        const int64_t closing = !row.completes ? 0 : row.frames > 100 ? 20000 : 500;
        EXPECT_EQ(took, 1000 + row.time + closing + 1200) << row.frames;
    }
}

// The progress line comes with each attempt; the abort is seen between refusals alone.
TEST_F(SendBench, ProgressAndAbort) {
    int refusals = 2;
    onFrame = [&](const std::string& frame) {
        JobOf(Direction::kSend).abort = frame[1] > 10;
        const bool refused = frame[1] > 12 || (frame[1] == 10 && refusals-- > 0);
        return std::string(1, refused ? kNakByte : kAckByte);
    };
    const QString printed = Store(std::string(128 * 30, 'c'));
    EXPECT_EQ(printed.count("Sent: 10/30\x1b[1A"), 3);
    EXPECT_TRUE(printed.endsWith("Transfer failed!"));
    EXPECT_EQ(out.size(), (13u + 2) * 132 + 5);
}

TEST_F(SendBench, AFileAboveTheLimitIsNotAnnounced) {
    const std::string large = folder.path().toStdString() + "/large";
    std::ofstream{large};
    ASSERT_EQ(truncate(large.c_str(), kLargestSentFile + 1), 0);
    EXPECT_EQ(Transfer(Direction::kSend, large), "Blocks: 524289Transfer failed to start!");
    EXPECT_EQ(out, "");
}

}  // namespace
