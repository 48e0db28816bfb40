// Whole files against rx(1) and sx(1) of lrzsz on a pseudo terminal, on the virtual clock:
// time stands still while the program owes an answer, and what goes to it waits until it
// reads. Both are needed. rx throws away what it has not read yet behind each NAK and ACK
// that it writes, so an answer that comes at once, as it never does in real time, is lost;
// and a lost EOT is not sent again.
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>

#include "tests/xmodem/transfer_bench.h"

namespace {

class LrzszBench : public TransferBench {
  protected:
    // Runs `program` on the file device.bin; rx starts 700 ms behind the device's command.
    QString Run(Direction direction, const char* program, const char* options) {
        const int pause = direction == Direction::kSend ? 700 : 0;
        device = [=, startAt = int64_t(-1)](int64_t now, const std::string& came) mutable {
            if (came.find("XMODEM") != came.npos) startAt = now + pause;
            if (now == startAt) {
                Start(program, options);
                return pause ? Answer() : "";
            }
            if (port < 0 || came.empty()) return std::string();
            UntilItReads();
            EXPECT_EQ(write(port, came.data(), came.size()), ssize_t(came.size()));
            return Answer();
        };
        const QString printed = Transfer(direction);
        int status = -1;
        waitpid(child, &status, 0);
        close(port);
        port = -1;
        EXPECT_EQ(status, 0);
        return printed;
    }
    void Start(const char* program, const char* options) {
        termios raw = {};
        cfmakeraw(&raw);
        child = forkpty(&port, nullptr, &raw, nullptr);
        if (child != 0) return;
        if (!freopen("/dev/null", "w", stderr)) _exit(1);
        _exit(execlp(program, program, options, "device.bin", nullptr));
    }
    // The state of a process that waits is S; the only wait of these programs is for a byte.
    void UntilItReads() {
        for (int i = 0; i < 20000; ++i, usleep(1000)) {
            const QByteArray facts = ScratchFolder::Get(QString("/proc/%1/stat").arg(child));
            if (strchr("SZ", facts[facts.lastIndexOf(')') + 2])) return;
        }
        ADD_FAILURE() << "no rest";
    }
    // One byte, or a frame; nothing once the program has ended.
    std::string Answer() {
        std::string answer;
        const auto whole = [&] { return answer[0] == 1 ? 132u : answer[0] == 2 ? 1028u : 1u; };
        for (pollfd ready = {port, POLLIN, 0}; answer.empty() || answer.size() < whole();) {
            char block[2048];
            const int came = poll(&ready, 1, 20000);
            EXPECT_EQ(came, 1) << "no answer";
            const ssize_t count = came == 1 ? read(port, block, sizeof block) : 0;
            if (count < 1) break;
            answer.append(block, size_t(count));
        }
        return answer;
    }
    static std::string SomeBytes(int count) {
        std::string bytes(size_t(count), 0);
        for (int i = 0; i < count; ++i) bytes[size_t(i)] = char(i * 31 + i / 251);
        return bytes;
    }

    static constexpr int kSizes[] = {0, 1, 127, 128, 129, 1024, 65537, 300000};
    pid_t child = -1;
    int port = -1;
};

TEST_F(LrzszBench, FilesGoToRx) {
    for (const int size : kSizes) {
        const int blocks = (size + 127) / 128, frames = std::max(blocks, 1);
        QString lines = QString("Blocks: %1").arg(blocks);
        for (int n = 10; n <= blocks; n += 10)
            lines += QString("Sent: %1/%2\x1b[1A").arg(n).arg(blocks);
        Write(SomeBytes(size));
        EXPECT_EQ(Run(Direction::kSend, "rx", "-q"), lines + "Transfer completed OK!");
        std::string sent = SomeBytes(size);
        sent.resize(frames * 128);
        EXPECT_TRUE(Content("device.bin") == sent) << size;
        EXPECT_EQ(took, 1000 + frames * 200 + 500 + 1200);  // not one frame went twice
    }
}

// sx fills up with SUB.
TEST_F(LrzszBench, FilesComeFromSx) {
    for (const char* options : {"-q", "-qk"}) {
        for (const int size : kSizes) {
            std::string content = SomeBytes(size);
            Write(content, "device.bin");
            EXPECT_TRUE(Run(Direction::kReceive, "sx", options).endsWith("Completed OK"));
            content.append((128 - size % 128) % 128, '\x1a');
            EXPECT_TRUE(Content() == content) << size;
        }
    }
}

}  // namespace
