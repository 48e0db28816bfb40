// The two transfer workers, one thread for each file and direction.
#pragma once

// Whether the worker that stores a file on the device, or the one that fetches a file,
// is alive. While either is, the poll leaves the link alone. Interface thread.
bool XmodemSendWorkerRuns();
bool XmodemReceiveWorkerRuns();

// Ends what runs: the abort flag, a wait of up to 3000 ms, then the kill. At shutdown.
void StopTransferWorkers();

// The send worker's status line is ready, and the receive worker's: print it, then let
// the worker go on. Handlers of the two status events.
void ShowSendStatus();
void ShowReceiveStatus();
