// The data and control servers, through which local tools reach the console. The data
// port is a byte bridge to the device, the control port takes commands. Interface thread.
#pragma once

#include <cstdint>

#include "link/ServerRecord.h"

// How long the workers are waited for at exit, and how long once it was let go by force.
constexpr int64_t kServerEndWait = 3000;  // milliseconds
constexpr int64_t kServerKillWait = 1000;

// Starts the two workers, which then open their ports and say how that went.
void StartServers();
// Ends the two workers, the data server's first, within kServerEndWait or by force.
void StopServers();

// Bytes from the device to the data port's client, if one is connected. Never waits: what
// the client's socket does not take at once is lost to it.
void SendToDataClient(const void* bytes, int64_t count);

// The record of a running server, whose chunk may be read until ReleaseServerWorker. Null
// for any other identity and while the servers do not run.
const ServerRecord* FindServer(int64_t identity);
// Lets the worker that waits for its chunk to be taken go on.
void ReleaseServerWorker(int64_t identity);

// Handler of event 65537: shows the record's message.
void HandleServerMessage(int64_t identity);
