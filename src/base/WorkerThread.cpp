#include "base/WorkerThread.h"

#include "base/Pacing.h"

namespace {

constexpr int64_t kWaitStep = 5;  // milliseconds

void* RunBody(void* argument) {
    WorkerThread& worker = *static_cast<WorkerThread*>(argument);
    worker.body(worker.argument);
    worker.ended = true;
    return nullptr;
}

}  // namespace

bool StartWorker(WorkerThread& worker, void (*body)(void*), void* argument, const char* name) {
    worker.body = body;
    worker.argument = argument;
    worker.ended = false;
    worker.started = pthread_create(&worker.handle, nullptr, RunBody, &worker) == 0;
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
    if (worker.started) pthread_join(worker.handle, nullptr);
    worker.started = false;
    return true;
}
