// A thread with one body, started and ended by the same other thread. Ending one is a
// request by a flag of its own record, a wait with a limit, and, for a body that does not
// come, whatever its owner has to make it come.
#pragma once

#include <pthread.h>

#include <atomic>
#include <cstdint>

struct WorkerThread {
    pthread_t handle = {};
    void (*body)(void* argument) = nullptr;
    void* argument = nullptr;
    bool started = false;            // and not joined yet; for the starting thread alone
    std::atomic<bool> ended{false};  // the body has returned; the last thing the thread writes
};

// Runs body(argument) on a thread of its own, named for debuggers (15 characters at the
// most). The record must outlive the thread. False when no thread can be had.
bool StartWorker(WorkerThread& worker, void (*body)(void*), void* argument, const char* name);

// True from a good start until the body has returned. The starting thread.
bool WorkerRuns(const WorkerThread& worker);

// Waits in steps for up to `ms` milliseconds. True when the body has returned, or was
// never started, and the thread is gone: the record can be started again. The starting
// thread.
bool WaitForWorker(WorkerThread& worker, int64_t ms);
