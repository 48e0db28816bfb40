#include "base/WorkerThread.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include "base/Pacing.h"

namespace {

constexpr int64_t kWaitStep = 5;  // milliseconds

thread_local const WorkerThread* ownWorker = nullptr;

void* RunBody(void* argument) {
    WorkerThread& worker = *static_cast<WorkerThread*>(argument);
    ownWorker = &worker;
    worker.body(worker.argument);
    worker.ended = true;
    return nullptr;
}

}  // namespace

bool StartWorker(WorkerThread& worker, void (*body)(void*), void* argument, const char* name) {
    worker.body = body;
    worker.argument = argument;
    worker.ended = false;
    worker.stopped = false;
    worker.stopDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    worker.started = worker.stopDescriptor >= 0 &&
                     pthread_create(&worker.handle, nullptr, RunBody, &worker) == 0;
    if (!worker.started) close(worker.stopDescriptor);
    if (worker.started) pthread_setname_np(worker.handle, name);
    return worker.started;
}

bool WorkerRuns(const WorkerThread& worker) {
    return worker.started && !worker.ended;
}

bool WaitForWorker(WorkerThread& worker, int64_t ms) {
    // Not cut short when the program is to leave. By the clock and not by the steps, which a busy
    // machine makes longer.
    const int64_t end = NowMs() + ms;
    while (WorkerRuns(worker) && NowMs() < end) AwaitReady(0, 0, kWaitStep);
    if (WorkerRuns(worker)) return false;
    if (!worker.started) return true;
    pthread_join(worker.handle, nullptr);
    close(worker.stopDescriptor);
    worker.started = false;
    return true;
}

void StopWorker(WorkerThread& worker) {
    if (!worker.started) return;
    worker.stopped = true;
    eventfd_write(worker.stopDescriptor, 1);
}

bool WorkerIsStopped() {
    return ownWorker && ownWorker->stopped;
}

int StopDescriptor() {
    return ownWorker ? ownWorker->stopDescriptor : -1;
}
