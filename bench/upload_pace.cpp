// How far a real upload runs over its prescribed steps: 500 lines over a pty to a board
// that echoes at once. Prints one figure, in per cent over; the budget is 3.
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/SerialPort.h"
#include "terminal/screen/TerminalSizing.h"
#include "ui/InterfaceLayer.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/CanvasGadget.h"
#include "ui/gadgets/TextEntryGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/Windows.h"
#include "upload/UploadOptions.h"
#include "upload/UploadProgram.h"

namespace {

constexpr int kLines = 500;
constexpr int kStepMs = 20;                // of a wait for an echo or a prompt
constexpr int kFixedDelays = 3 + 10 + 20;  // line delays: break, close, RUN

std::atomic<bool> boardOff{false};

std::string AnswerTo(const char* bytes, ssize_t count) {
    std::string answer;
    for (ssize_t i = 0; i < count; ++i) {
        const bool lineEnd = bytes[i] == '\r' || bytes[i] == '\x03' || bytes[i] == '\x1a';
        if (lineEnd) answer += "\r\n> ";
        if (bytes[i] >= ' ') answer += bytes[i];
    }
    return answer;
}

void RunBoard(int fd) {
    char block[4096];
    while (!boardOff) {
        pollfd waiting = {fd, POLLIN, 0};
        if (poll(&waiting, 1, 100) < 1) continue;
        const ssize_t count = read(fd, block, sizeof block);
        if (count < 1) continue;
        const std::string answer = AnswerTo(block, count);
        if (write(fd, answer.data(), answer.size()) < 0) return;
    }
}

// What an upload touches of the main window.
void OpenUploadWindow() {
    OpenNumberedWindow(kMainWindow, 0, 0, 900, 700, "Upload pace", kStandardWindowFlags);
    TextEntryGadget(kSpecEntry, 0, 0, 100, 20, "le\\cr s\\picomite");
    TextGadget(kProgressText, 530, 1, 60, 20, "");
    ButtonGadget(kSaveMacroButton, 590, 1, 60, 20, "Save");
    CanvasGadget(kTerminalCanvas, 0, 30, 913, 654, kCanvasKeyboard);
    SetUpTerminal();
}

int64_t PrescribedMs() {
    const int steps = 2 + kLines;  // NEW, AUTOSAVE and the lines
    return steps * kStepMs + kFixedDelays * linkSettings.lineDelay +
           uploadSettings.autosaveEndDelay;
}

}  // namespace

int main(int argc, char** argv) {
    StartInterfaceLayer(argv);
    AllocateLinkBuffers();
    OpenUploadWindow();
    const int board = posix_openpt(O_RDWR | O_NOCTTY);
    if (board < 0 || grantpt(board) != 0 || unlockpt(board) != 0) return 1;
    if (OpenSerialLink(ptsname(board), 115200, 0, 0) == 0) return 1;
    std::thread far(RunBoard, board);
    SetUploadText(QString("PRINT \"a line of usual length\", 12345\n").repeated(kLines));
    const int64_t start = NowMs();
    UploadProgram();
    const int64_t took = NowMs() - start;
    boardOff = true;
    far.join();
    const int64_t prescribed = PrescribedMs();
    std::printf("upload of %d lines: %lld ms, prescribed %lld ms, %.2f %% over\n", kLines,
                static_cast<long long>(took), static_cast<long long>(prescribed),
                100.0 * static_cast<double>(took - prescribed) / static_cast<double>(prescribed));
    EndInterfaceLayer();
    return 0;
}
