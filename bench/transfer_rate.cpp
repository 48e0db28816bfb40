// Files each way over a pty to a device that answers at once: how far a transfer runs over
// its prescribed waits, in per cent (the budget is 3), its bytes a second beside those that
// the waits of a block allow, and its share of a core.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "link/LinkPrimitives.h"
#include "link/SerialPort.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSizing.h"
#include "ui/InterfaceLayer.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/CanvasGadget.h"
#include "ui/windows/Windows.h"
#include "xmodem/Frame.h"
#include "xmodem/TransferWorkers.h"

namespace {

constexpr int kAskDelayUs = 700000;  // so that the sender finds the request at its first look

struct BenchRow {
    const char* name;
    bool stores;      // on the device
    int block;        // bytes of data in a frame
    int blocks;       // of the file
    int64_t step;     // milliseconds that a block takes at the least
    int64_t overall;  // and what is prescribed besides: before, and behind the last
    int pieceUs;      // between the quarters of a frame, as on a slow line; 0: it comes whole
};

// clang-format off
constexpr BenchRow kRows[] = {
    {"sending, 128",    true,  kShortBlock, 200, 200, 500 + 500 + 500 + 1200, 0},
    {"receiving, 128",  false, kShortBlock, 500,  50, 200 + 100 + 50, 0},
    {"receiving, 1024", false, kLongBlock,  500,  50, 200 + 100 + 50, 0},
    {"at 9600 baud",    false, kShortBlock, 100, 138, 200 + 100 + 50, 34375},
};
// clang-format on

std::string NextFrame(const BenchRow& row, int number) {
    if (number > row.blocks) return std::string(1, kEot);
    std::string frame(static_cast<size_t>(row.block), 'x');
    const auto sum = static_cast<char>('x' * row.block);
    return std::string{row.block == kShortBlock ? char(kSoh) : char(kStx),
                       static_cast<char>(number), static_cast<char>(~number)} +
           frame + sum;
}

void Say(int fd, const std::string& bytes) {
    if (write(fd, bytes.data(), bytes.size()) < 0) _exit(1);
}

// The device, in a process of its own: takes the command, then has an answer for each
// frame, or a frame for each answer.
void RunDevice(int fd, const BenchRow& row) {
    char block[4096];
    std::string held;
    bool moving = false;
    for (int sent = 0; sent <= row.blocks;) {
        const ssize_t count = read(fd, block, sizeof block);
        if (count < 1) _exit(1);
        held.append(block, static_cast<size_t>(count));
        if (!moving) {
            moving = held.find("\"\r") != held.npos;
            if (!moving) continue;
            held.clear();
            if (!row.stores) continue;
            usleep(kAskDelayUs);
            Say(fd, std::string(1, kNak));
        } else if (!row.stores) {
            const std::string frame = NextFrame(row, ++sent);
            const size_t piece = row.pieceUs ? kSentFrame / 4 : frame.size();
            for (size_t at = 0; at < frame.size(); at += piece) {
                usleep(row.pieceUs);
                Say(fd, frame.substr(at, piece));
            }
        } else if (held.size() == kSentFrame || held[0] == kEot) {
            Say(fd, std::string(1, kAck));
            held.clear();
            ++sent;
        }
    }
    _exit(0);
}

// Milliseconds, until the worker has posted its end.
int64_t Transfer(const BenchRow& row, const QString& path) {
    const int64_t start = NowMs();
    row.stores ? StartSendWorker(path, "f.bin") : StartReceiveWorker("f.bin", path);
    for (;;) {
        const int32_t event = WaitForEvent(1000);
        if (event == kEventSendStatus) ShowSendStatus();
        if (event == kEventReceiveStatus) ShowReceiveStatus();
        if (event == kEventPrintLine) PrintHandedLines();
        if (event == kEventSendDone || event == kEventReceiveDone) return NowMs() - start;
    }
}

double CpuMs() {
    rusage use = {};
    getrusage(RUSAGE_SELF, &use);
    const auto ms = [](const timeval& t) { return 1000.0 * t.tv_sec + t.tv_usec / 1000.0; };
    return ms(use.ru_utime) + ms(use.ru_stime);
}

void Measure(const BenchRow& row, const std::string& path) {
    const int size = row.block * row.blocks;
    std::ofstream(path) << std::string(static_cast<size_t>(size), 'x');
    const int device = posix_openpt(O_RDWR | O_NOCTTY);
    if (device < 0 || grantpt(device) != 0 || unlockpt(device) != 0) return;
    if (OpenSerialLink(ptsname(device), 115200, 0, 0) == 0) return;
    const pid_t child = fork();
    if (child == 0) RunDevice(device, row);
    const double cpu = CpuMs();
    const int64_t took = Transfer(row, QString::fromStdString(path));
    const double used = CpuMs() - cpu;
    const int64_t prescribed = row.step * row.blocks + row.overall;
    const double share = 100.0 / static_cast<double>(took);
    std::printf(
        "%-16s %5lld ms, prescribed %5lld ms, %.2f %% over; %.0f bytes/s, at most %.0f; "
        "%.2f %% of a core\n",
        row.name, static_cast<long long>(took), static_cast<long long>(prescribed),
        100.0 * static_cast<double>(took - prescribed) / static_cast<double>(prescribed),
        1000.0 * size / static_cast<double>(took),
        1000.0 * row.block / static_cast<double>(row.step), used * share);
    std::fflush(stdout);
    CloseSerialLink();
    close(device);
    waitpid(child, nullptr, 0);
}

}  // namespace

int main(int argc, char** argv) {
    StartInterfaceLayer(argv);
    AllocateLinkBuffers();
    OpenNumberedWindow(kMainWindow, 0, 0, 900, 700, "Transfer rate", kStandardWindowFlags);
    CanvasGadget(kTerminalCanvas, 0, 30, 913, 654, kCanvasKeyboard);
    SetUpTerminal();
    const std::string path = "/tmp/transfer_rate." + std::to_string(getpid());
    for (const BenchRow& row : kRows) Measure(row, path);
    unlink(path.c_str());
    EndInterfaceLayer();
    return 0;
}
