#include "link/Servers.h"

#include <sys/socket.h>

#include <algorithm>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "link/LinkSettings.h"
#include "link/ServerWorker.h"
#include "terminal/screen/TerminalScreen.h"

namespace {

ServerRecord dataServer;
ServerRecord controlServer;

ServerRecord* FindRecord(int64_t identity) {
    for (ServerRecord* record : {&dataServer, &controlServer}) {
        if (record->running && record->identity == identity) return record;
    }
    return nullptr;
}

void StartServer(ServerRecord& record, int64_t identity, int port, const char* threadName) {
    sem_init(&record.chunkSemaphore, 0, 0);
    sem_init(&record.spareSemaphore, 0, 0);
    record.port = port;
    record.identity = identity;
    record.buffer.assign(kServerBuffer, 0);
    record.running = true;
    StartWorker(record.thread, ServerWorker, &record, threadName);
}

// The kill. The one place where a worker can still be is its semaphore: the loop that
// would have taken its chunk has ended. So it is let go from there and finds itself
// stopped. The thread is never torn down from outside, where it could hold what the process
// still needs, and it closes its own sockets as ever.
bool KillServer(ServerRecord& record) {
    sem_post(&record.chunkSemaphore);
    return WaitForWorker(record.thread, kServerKillWait);
}

void StopServer(ServerRecord& record, int64_t deadline) {
    if (!record.running) return;
    record.running = false;
    const int64_t wait = std::max<int64_t>(deadline - NowMs(), 0);
    // A worker that comes on neither keeps what it could still touch until the process ends.
    if (!WaitForWorker(record.thread, wait) && !KillServer(record)) return;
    sem_destroy(&record.chunkSemaphore);
    sem_destroy(&record.spareSemaphore);
    delete record.message.exchange(nullptr);
}

}  // namespace

void StartServers() {
    StartServer(dataServer, kDataServerIdentity, linkSettings.dataPort, "data server");
    StartServer(controlServer, kControlServerIdentity, linkSettings.controlPort, "control server");
}

// Both are asked first, so that two that stand on their semaphores cost one wait.
void StopServers() {
    const int64_t deadline = NowMs() + kServerEndWait;
    for (ServerRecord* record : {&dataServer, &controlServer}) StopWorker(record->thread);
    for (ServerRecord* record : {&dataServer, &controlServer}) StopServer(*record, deadline);
}

void SendToDataClient(const void* bytes, int64_t count) {
    const DescriptorUse use(dataServer.client);
    if (use.fd < 1 || count < 1) return;
    // A client that does not read has its socket's buffer for room; a failure is passed over.
    send(use.fd, bytes, static_cast<size_t>(count), MSG_NOSIGNAL | MSG_DONTWAIT);
}

const ServerRecord* FindServer(int64_t identity) {
    return FindRecord(identity);
}

void ReleaseServerWorker(int64_t identity) {
    ServerRecord* record = FindRecord(identity);
    if (!record) return;
    record->text.clear();
    sem_post(&record->chunkSemaphore);
}

void HandleServerMessage(int64_t identity) {
    if (ServerRecord* record = FindRecord(identity)) TerminalPrintLine(TakeServerMessage(*record));
}
