// The record that a transfer worker shares with the interface thread, one for each
// direction, and the rendezvous over it: the worker writes a line into `status`, posts an
// event and sleeps on its semaphore until the interface thread has shown the line.
#pragma once

#include <semaphore.h>

#include <QString>
#include <atomic>
#include <cstdint>

#include "base/WorkerThread.h"

enum class Direction { kSend, kReceive };

struct XmodemJob {
    Direction direction = Direction::kSend;
    WorkerThread thread;
    sem_t semaphore = {};  // valid while thread.started; starts at 0 for each file
    QString firstName;     // receive: name on the device. Send: full path on the PC
    QString secondName;    // receive: full path on the PC. Send: name on the device
    QString lineEnd;       // line ending to the device, as it stood when the job started
    QString status;        // the line to show; the worker's until `statusWaits` is set

    int64_t endBy = 0;                     // when a worker that was asked to end is killed
    bool killed = false;                   // and not yet gone; interface thread
    std::atomic<bool> abort{false};        // set by the interface thread, read by the worker
    std::atomic<bool> statusWaits{false};  // set by the worker, cleared when shown
};

// The job of a direction. The interface thread fills it before it starts the worker;
// from then on both sides write what the comments above give them.
XmodemJob& JobOf(Direction direction);

// Hands `text` to the interface thread and sleeps until it was shown. On the worker.
void ShowJobStatus(XmodemJob& job, const QString& text);

// Prints the line that waits, if one does, and lets the worker go on. Interface thread.
void ServeJobStatus(XmodemJob& job);

// Tells the interface thread that the worker has finished with the link. On the worker.
void PostJobEnd(const XmodemJob& job);
