// The two transfer workers, one thread for each file and direction. Interface thread.
#pragma once

#include <QString>
#include <cstdint>

// Milliseconds that a worker may take to end once its abort flag is set.
constexpr int64_t kTimeToEnd = 3000;
// Milliseconds that it may take to run out once it was killed. What takes longer stands in
// a call of the kernel that nothing can end, such as on a dead network drive. It counts
// as ended, ends as soon as it comes out, and no other worker of its direction is started
// until then.
constexpr int64_t kTimeToRunOut = 1000;

// Starts a worker. A worker of the same direction that is still alive is stopped first,
// and what it has posted of its end is dropped: it belongs to an earlier file.
void StartSendWorker(const QString& pcPath, const QString& deviceName);
void StartReceiveWorker(const QString& deviceName, const QString& pcPath);

// Whether the worker that stores a file on the device, or the one that fetches a file,
// is alive. While either is, the poll leaves the link alone. No longer once it was killed.
bool XmodemSendWorkerRuns();
bool XmodemReceiveWorkerRuns();

// Ends the worker if it is alive: the abort flag, a wait of up to kTimeToEnd in which its
// status lines are still shown, then the kill. A killed worker leaves its file as it
// stands, prints nothing and posts no end.
void StopSendWorker();
void StopReceiveWorker();

// Lets the time run in which what runs in either direction is to end. At shutdown, before
// other things are waited for.
void AskTransferWorkersToEnd();

// Ends what runs, in both directions. At shutdown.
void StopTransferWorkers();

// The send worker's status line is ready, and the receive worker's: print it, then let
// the worker go on. Handlers of the two status events.
void ShowSendStatus();
void ShowReceiveStatus();
