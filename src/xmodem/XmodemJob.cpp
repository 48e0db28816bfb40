#include "xmodem/XmodemJob.h"

#include <cerrno>

#include "base/Numbers.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/VtParser.h"
#include "ui/events/EventQueue.h"
#include "xmodem/XmodemSeams.h"

namespace {

struct Jobs {
    XmodemJob send;
    XmodemJob receive;
    Jobs() { receive.direction = Direction::kReceive; }
};

Jobs jobs;
void (*serveBeforeWait)() = nullptr;

struct EventRow {
    int32_t status;
    int32_t done;
};

EventRow EventsOf(Direction direction) {
    if (direction == Direction::kSend) return {kEventSendStatus, kEventSendDone};
    return {kEventReceiveStatus, kEventReceiveDone};
}

void Post(int32_t event) {
    PostInterfaceEvent(event, kMainWindow, 0, 0);
}

}  // namespace

XmodemJob& JobOf(Direction direction) {
    return direction == Direction::kSend ? jobs.send : jobs.receive;
}

void ShowJobStatus(XmodemJob& job, const QString& text) {
    if (WorkerIsStopped()) return;
    job.status = text;
    job.statusWaits = true;
    Post(EventsOf(job.direction).status);
    if (serveBeforeWait) serveBeforeWait();
    while (sem_wait(&job.semaphore) != 0 && errno == EINTR) {
    }
}

// Each progress line of the sender takes the place of the one before: the cursor goes
// back up onto it. The receiver's lines stand below each other, on purpose.
void ServeJobStatus(XmodemJob& job) {
    // None waits when the event is that of a worker which was served, or killed, before.
    if (!job.statusWaits) return;
    const QString text = job.status;
    TerminalPrintLine(text);
    if (job.direction == Direction::kSend && text.startsWith("Sent: ")) TerminalFeed("\x1b[1A");
    job.statusWaits = false;
    sem_post(&job.semaphore);
}

void PostJobEnd(const XmodemJob& job) {
    if (!WorkerIsStopped()) Post(EventsOf(job.direction).done);
}

void SetServeBeforeWait(void (*procedure)()) {
    serveBeforeWait = procedure;
}
