#include "xmodem/TransferWorkers.h"

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/events/EventQueue.h"
#include "xmodem/Receive.h"
#include "xmodem/Send.h"
#include "xmodem/XmodemJob.h"

namespace {

constexpr int64_t kStatusInterval = 10;  // milliseconds, while a worker is waited for

struct WorkerRow {
    void (*body)(XmodemJob& job);
    const char* threadName;
    int32_t endEvent;
};

constexpr WorkerRow kSendRow = {XmodemSendWorker, "xmodem-send", kEventSendDone};
constexpr WorkerRow kReceiveRow = {XmodemReceiveWorker, "xmodem-receive", kEventReceiveDone};

const WorkerRow& RowOf(const XmodemJob& job) {
    return job.direction == Direction::kSend ? kSendRow : kReceiveRow;
}

void RunJob(void* argument) {
    XmodemJob& job = *static_cast<XmodemJob*>(argument);
    RowOf(job).body(job);
}

void AskToEnd(XmodemJob& job) {
    if (!job.abort) job.endBy = NowMs() + kTimeToEnd;
    job.abort = true;
}

// The status lines are served here because the loop, which otherwise does it, stands
// still meanwhile: a worker that slept on its semaphore would never meet its abort flag.
bool EndsByItself(XmodemJob& job) {
    AskToEnd(job);
    while (NowMs() < job.endBy) {
        if (WaitForWorker(job.thread, kStatusInterval)) return true;
        if (!job.statusWaits) continue;
        PrintAllHandedLines();  // the worker's own, from before this line
        ServeJobStatus(job);
    }
    return WaitForWorker(job.thread, 0);
}

// The kill: the worker's waits end, the one on its semaphore as well.
bool EndsWhenKilled(XmodemJob& job) {
    if (!job.killed) StopWorker(job.thread);
    job.killed = true;
    sem_post(&job.semaphore);
    return WaitForWorker(job.thread, kTimeToRunOut);
}

// False when the worker is still there.
bool StopJob(XmodemJob& job) {
    if (!job.thread.started) return true;
    const bool gone = (!job.killed && EndsByItself(job)) || EndsWhenKilled(job);
    if (!gone) return false;
    job.killed = false;
    job.statusWaits = false;
    sem_destroy(&job.semaphore);
    return true;
}

void StartJob(XmodemJob& job, const QString& firstName, const QString& secondName) {
    if (!StopJob(job)) return;
    const WorkerRow& row = RowOf(job);
    DropQueuedEvents(row.endEvent, 0);
    sem_init(&job.semaphore, 0, 0);
    job.abort = false;
    job.firstName = firstName;
    job.secondName = secondName;
    job.lineEnd = lineEnding.bytes;
    if (!StartWorker(job.thread, RunJob, &job, row.threadName)) sem_destroy(&job.semaphore);
}

bool JobRuns(const XmodemJob& job) {
    return WorkerRuns(job.thread) && !job.killed;
}

}  // namespace

void StartSendWorker(const QString& pcPath, const QString& deviceName) {
    StartJob(JobOf(Direction::kSend), pcPath, deviceName);
}

void StartReceiveWorker(const QString& deviceName, const QString& pcPath) {
    StartJob(JobOf(Direction::kReceive), deviceName, pcPath);
}

bool XmodemSendWorkerRuns() {
    return JobRuns(JobOf(Direction::kSend));
}

bool XmodemReceiveWorkerRuns() {
    return JobRuns(JobOf(Direction::kReceive));
}

void StopSendWorker() {
    StopJob(JobOf(Direction::kSend));
}

void StopReceiveWorker() {
    StopJob(JobOf(Direction::kReceive));
}

void AskTransferWorkersToEnd() {
    AskToEnd(JobOf(Direction::kSend));
    AskToEnd(JobOf(Direction::kReceive));
}

void StopTransferWorkers() {
    AskTransferWorkersToEnd();
    StopSendWorker();
    StopReceiveWorker();
}

void ShowSendStatus() {
    ServeJobStatus(JobOf(Direction::kSend));
}

void ShowReceiveStatus() {
    ServeJobStatus(JobOf(Direction::kReceive));
}
