// What a server's worker and the interface thread share. They keep apart by turns: the
// worker fills `buffer`, `length` and `text`, posts its event and sleeps on
// `chunkSemaphore` until the interface thread has read them and signalled. What either
// may touch at any moment is atomic.
#pragma once

#include <semaphore.h>

#include <QString>
#include <atomic>
#include <cstdint>
#include <vector>

#include "base/WorkerThread.h"
#include "link/Descriptor.h"
#include "link/ServerSockets.h"

// Bytes of one chunk at the most. There is no framing: a chunk is what recv(2) gave.
constexpr int kServerBuffer = 5000;

// Message events that may wait in the queue. A burst of clients during a long upload
// loses lines beyond these.
constexpr int kMostUnreadMessages = 256;

struct ServerRecord {
    SharedDescriptor client;  // of the last event on this server, 0 for none
    WorkerThread thread;
    sem_t chunkSemaphore;                    // the worker sleeps on it; starts at 0
    sem_t spareSemaphore;                    // made and freed with the record; nothing waits on it
    int64_t port = 0;                        // one that is no port is refused
    std::atomic<QString*> message{nullptr};  // line to show, null for none
    std::atomic<int> unreadMessages{0};      // message events posted and not handled
    int64_t length = 0;                      // bytes in `buffer`; -1 for a failed recv(2)
    QString text;                            // the same bytes decoded
    std::vector<uint8_t> buffer;             // kServerBuffer bytes, zeros between chunks
    int64_t identity = 0;                    // of base/Numbers.h
    bool running = false;                    // between start and stop; interface thread
    ServerSockets sockets;                   // the worker's while it lives
};

// Replaces the message and posts its event. Worker.
void PostServerMessage(ServerRecord& record, const QString& text);
// The message, emptied by the call. Interface thread.
QString TakeServerMessage(ServerRecord& record);

// Posts the event of a filled buffer, and sleeps until the interface thread has taken it.
// Worker.
void HandOverChunk(ServerRecord& record);
