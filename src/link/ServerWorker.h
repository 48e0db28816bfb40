// The body of both servers' threads. A worker acts on nothing that it reads: it hands each
// chunk to the interface thread and sleeps until that has taken it.
#pragma once

#include "link/ServerRecord.h"

// Pause behind each turn of the worker, in milliseconds: with a chunk a turn, a server
// takes 500 kB a second at the most, and 200 kB with the board on a serial line. While
// nothing comes, the worker sleeps in poll(2).
constexpr int64_t kServerPace = 10;

// Thread body; the argument is the ServerRecord. Returns once it is stopped, or at once
// when the port can not be had: nothing retries.
void ServerWorker(void* record);
