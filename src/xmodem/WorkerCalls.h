// All that a transfer worker does to the world: it waits, reads and writes the link, and
// prints. These are also the only places where it can be killed.
//
// A kill is a deferred pthread_cancel(3). A worker runs with cancellation off and turns
// it on for the time of a call that may block, so it is never killed while it holds the
// event queue, the terminal's lines, the allocator or a file. The C library then unwinds
// the worker's stack: its blocks are freed, its file is closed, and nothing more of it
// reaches the link, the terminal or the event queue, since each call here meets the kill
// before it acts. On the worker's thread.
#pragma once

#include <QString>
#include <cstdint>

// While one stands, a kill takes effect in whatever waits.
class Killable {
  public:
    Killable();
    ~Killable();
    Killable(const Killable&) = delete;
    Killable& operator=(const Killable&) = delete;

  private:
    int before = 0;
};

// While one stands inside a Killable, a kill waits.
class Unkillable {
  public:
    Unkillable();
    ~Unkillable();
    Unkillable(const Unkillable&) = delete;
    Unkillable& operator=(const Unkillable&) = delete;

  private:
    int before = 0;
};

// Ends the thread here if it was killed.
void MeetKill();

void WorkerSleep(int64_t ms);

// Takes what waits on the link into a block of kWorkerBlock bytes, and leaves the rest of
// it as it was. The count; 0 for nothing, below 0 for no link and for a failure.
int WorkerTake(uint8_t* block);

// Waits until a byte has come on the link or `ms` milliseconds have passed.
void WorkerAwait(int64_t ms);

// Sends one byte, `times` times over.
void WorkerPut(uint8_t byte, int times = 1);
void WorkerPutBytes(const uint8_t* bytes, int count);

// SendAndWait; see link/LinkPrimitives.h for `delay` and the reply.
QString WorkerAsk(const QString& text, int64_t delay);

void WorkerPrint(const QString& text);
