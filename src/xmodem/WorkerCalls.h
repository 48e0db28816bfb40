// All that a transfer worker does to the world: it waits, reads and writes the link, and
// prints. A worker that was killed does nothing of it any more: a call that blocks comes back
// at once, and each later one finds the worker stopped and does nothing. So the body runs out
// by itself, its blocks are freed, its file is closed as it stands, and nothing more of it
// reaches the link, the terminal or the event queue. On the worker's thread.
#pragma once

#include <QString>
#include <cstdint>

void WorkerSleep(int64_t ms);

// Takes what waits on the link into a block of kWorkerBlock bytes, and leaves the rest of
// it as it was. The count; 0 for nothing, below 0 for no link, for a failure and once killed.
int WorkerTake(uint8_t* block);

// Waits until a byte has come on the link or `ms` milliseconds have passed.
void WorkerAwait(int64_t ms);

// Sends one byte, `times` times over.
void WorkerPut(uint8_t byte, int times = 1);
void WorkerPutBytes(const uint8_t* bytes, int count);

// SendAndWait; see link/LinkPrimitives.h for `delay` and the reply.
QString WorkerAsk(const QString& text, int64_t delay);

void WorkerPrint(const QString& text);
