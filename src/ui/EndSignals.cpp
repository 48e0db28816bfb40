#include "ui/EndSignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QDialog>
#include <QSocketNotifier>
#include <cerrno>
#include <csignal>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "ui/events/NumberedWidgets.h"

namespace {

constexpr int kEndSignals[] = {SIGTERM, SIGINT, SIGHUP};

int pipeEnds[2] = {-1, -1};  // read and written end; a signal handler may only write
QSocketNotifier* notifier = nullptr;

void PassOn(int) {
    const int error = errno;
    (void)!write(pipeEnds[1], "", 1);
    errno = error;
}

// A dialog that stands gets the answer of its Cancel: the handler behind it would otherwise
// wait for the user.
void CloseMainWindow() {
    char bytes[16];
    (void)!read(pipeEnds[0], bytes, sizeof bytes);
    RaiseWindowEvent(kMainWindow, kEventCloseWindow);
    RequestLeave(true);
    while (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}

void SetHandler(int signal, void (*handler)(int)) {
    struct sigaction present = {};
    if (sigaction(signal, nullptr, &present) < 0 || present.sa_handler == SIG_IGN) return;
    struct sigaction wanted = {};
    wanted.sa_handler = handler;
    wanted.sa_flags = SA_RESTART;
    sigaction(signal, &wanted, nullptr);
}

}  // namespace

void WatchEndSignals() {
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) < 0) return;
    notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(notifier, &QSocketNotifier::activated, CloseMainWindow);
    for (const int signal : kEndSignals) SetHandler(signal, PassOn);
}

void ForgetEndSignals() {
    for (const int signal : kEndSignals) SetHandler(signal, SIG_DFL);
    delete notifier;
    notifier = nullptr;
    for (int& end : pipeEnds) {
        if (end >= 0) close(end);
        end = -1;
    }
}
