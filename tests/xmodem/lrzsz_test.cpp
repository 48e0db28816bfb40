// Whole files against rx(1) and sx(1) of lrzsz, at the far end of a pseudo terminal.
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>

#include <chrono>

#include "tests/xmodem/transfer_bench.h"

namespace {

// Real time, four times as fast, in which a sleep ends as soon as the device has said
// something. The device's program starts one sleep after its command has come.
class PtyBench : public TransferBench, public Clock {
  protected:
    PtyBench() {
        openpty(&board, &port, nullptr, nullptr, nullptr);
        fcntl(board, F_SETFL, O_NONBLOCK);
        fcntl(board, F_SETFD, FD_CLOEXEC);
        OpenSerialLink(ttyname(port), 115200, 0, 0);
        InstallClock(this);
    }
    ~PtyBench() override {
        close(board);
        close(port);
    }

    int64_t Now() override {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(now * kHaste).count();
    }
    int64_t LocalSeconds() override { return 0; }
    void Sleep(int64_t ms) override {
        if (child == 0 && !command.empty()) StartProgram();
        char block[256];
        const ssize_t count = child == 0 ? read(board, block, sizeof block) : 0;
        if (count > 0) command.append(block, count);
        pollfd ready = {port, POLLIN, 0};
        poll(&ready, 1, int(ms / kHaste));
    }

    void StartProgram() {
        fcntl(board, F_SETFL, 0);
        child = fork();
        if (child != 0) return;
        for (const int stream : {0, 1}) dup2(board, stream);
        dup2(open("/dev/null", O_WRONLY), 2);
        if (chdir(folder.path().toUtf8().constData()) == 0)
            execlp(program[0], program[0], program[1], "device.bin", nullptr);
        _exit(1);
    }

    QString Run(Direction direction, const char* name, const char* option) {
        program[0] = name;
        program[1] = option;
        child = 0;
        command.clear();
        const QString printed = Transfer(direction, Path());
        int status = -1;
        waitpid(child, &status, 0);
        fcntl(board, F_SETFL, O_NONBLOCK);
        EXPECT_EQ(status, 0) << name;
        return printed;
    }
    std::string DevicePath() const { return folder.path().toStdString() + "/device.bin"; }
    void Write(const std::string& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string SomeBytes(int count) {
        std::string bytes(count, 0);
        for (int i = 0; i < count; ++i) bytes[i] = char(i * 31 + i / 251);
        return bytes;
    }

    static constexpr int kHaste = 4;
    static constexpr int kSizes[] = {0, 1, 127, 128, 129, 1024, 65537, 300000};
    int board = -1, port = -1;
    pid_t child = 0;
    std::string command;
    const char* program[2] = {};
};

TEST_F(PtyBench, FilesGoToRx) {
    for (const int size : kSizes) {
        Write(Path(), SomeBytes(size));
        EXPECT_TRUE(Run(Direction::kSend, "rx", "-q").endsWith("Transfer completed OK!")) << size;
        std::ifstream file(DevicePath(), std::ios::binary);
        const std::string held{std::istreambuf_iterator<char>(file), {}};
        EXPECT_EQ(held, size ? Padded(SomeBytes(size)) : std::string(128, '\0')) << size;
    }
}

TEST_F(PtyBench, FilesComeFromSx) {
    for (const char* option : {"-q", "-qk"}) {
        for (const int size : kSizes) {
            Write(DevicePath(), SomeBytes(size));
            EXPECT_TRUE(Run(Direction::kReceive, "sx", option).endsWith("Completed OK")) << size;
            const std::string held = Content(), sent = SomeBytes(size);
            EXPECT_EQ(held.size() % 128, 0u);
            EXPECT_EQ(held.substr(0, size), sent) << size;
            EXPECT_EQ(held.find_first_not_of('\x1a', size), std::string::npos) << size;
        }
    }
}

}  // namespace
