// A thread with one body, started and ended by the same other thread. One that is stopped
// finds every wait of base/Pacing.h that it stands in or begins at its end at once, and is
// waited for with a limit.
#pragma once

#include <pthread.h>

#include <atomic>
#include <cstdint>

struct WorkerThread {
    pthread_t handle = {};
    void (*body)(void* argument) = nullptr;
    void* argument = nullptr;
    bool started = false;     // and not joined yet; for the starting thread alone
    int stopDescriptor = -1;  // an eventfd(2), readable once the worker is stopped
    std::atomic<bool> stopped{false};
    std::atomic<bool> ended{false};  // the body has returned; the last thing the thread writes
};

// Runs body(argument) on a thread of its own, named for debuggers (15 characters at the
// most). The record must outlive the thread. False when no thread or descriptor can be had.
bool StartWorker(WorkerThread& worker, void (*body)(void*), void* argument, const char* name);

// True from a good start until the body has returned. The starting thread.
bool WorkerRuns(const WorkerThread& worker);

// Waits in steps for up to `ms` milliseconds. True when the body has returned, or was
// never started, and the thread is gone: the record can be started again. The starting
// thread.
bool WaitForWorker(WorkerThread& worker, int64_t ms);

// Stops a worker; nothing for one that was not started. The starting thread.
void StopWorker(WorkerThread& worker);

// Whether the calling thread is a worker that was stopped, and the descriptor that tells it,
// -1 for a thread that is none. Any thread.
bool WorkerIsStopped();
int StopDescriptor();
