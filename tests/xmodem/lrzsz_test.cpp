// Whole files against rx(1) and sx(1) of lrzsz, on the other side of a pseudo terminal.
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>

#include <chrono>

#include "tests/xmodem/transfer_bench.h"

namespace {

// Real time, four times as fast, in which a sleep ends as soon as the device has said
// something.
class PtyBench : public TransferBench, public Clock {
  protected:
    PtyBench() {
        InstallClock(this);
        lineEnd = "\n";
    }
    int64_t Now() override {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(now * kHaste).count();
    }
    int64_t LocalSeconds() override { return 0; }
    void Sleep(int64_t ms) override {
        pollfd ready = {port, POLLIN, 0};
        poll(&ready, 1, int(ms / kHaste));
    }

    // A device that takes its command, then leaves the line to a program.
    QString Run(Direction direction, const std::string& program) {
        const std::string script = "cd " + folder.path().toStdString() +
                                   "; stty raw -echo; while read -r line; do case $line in "
                                   "XMODEM*) break; esac; done; " +
                                   program + " device.bin 2>/dev/null";
        const pid_t child = forkpty(&port, nullptr, nullptr, nullptr);
        if (child == 0) _exit(execl("/bin/sh", "sh", "-c", script.c_str(), nullptr));
        usleep(100000);  // the terminal is made raw by then
        fcntl(port, F_SETFL, O_NONBLOCK);
        AdoptSerialLink(port);
        const QString printed = Transfer(direction, Path());
        // sx(1) may have seen one NAK more than it needed, and wait for one ACK more.
        if (direction == Direction::kReceive) AdoptSerialLink(0);
        waitpid(child, nullptr, 0);
        return printed;
    }
    std::string DevicePath() const { return folder.path().toStdString() + "/device.bin"; }
    static std::string SomeBytes(int count) {
        std::string bytes(count, 0);
        for (int i = 0; i < count; ++i) bytes[i] = char(i * 31 + i / 251);
        return bytes;
    }

    static constexpr int kHaste = 4;
    static constexpr int kSizes[] = {0, 1, 127, 128, 129, 1024, 65537, 300000};
    int port = -1;
};

TEST_F(PtyBench, FilesGoToRx) {
    for (const int size : kSizes) {
        WriteFile(Path(), SomeBytes(size));
        EXPECT_TRUE(
            Run(Direction::kSend, "sleep 0.2; exec rx -q").endsWith("Transfer completed OK!"))
            << size;
        const std::string sent = size ? Padded(SomeBytes(size)) : std::string(128, '\0');
        EXPECT_EQ(Content(DevicePath()), sent) << size;
    }
}

TEST_F(PtyBench, FilesComeFromSx) {
    for (const char* program : {"exec sx -q", "exec sx -qk"}) {
        for (const int size : kSizes) {
            WriteFile(DevicePath(), SomeBytes(size));
            EXPECT_TRUE(Run(Direction::kReceive, program).endsWith("Completed OK")) << size;
            const std::string held = Content(Path());
            EXPECT_EQ(held.substr(0, size), SomeBytes(size)) << size;
            EXPECT_LT(held.size() - size, 128u);
            EXPECT_EQ(held.find_first_not_of('\x1a', size), std::string::npos) << size;
        }
    }
}

}  // namespace
