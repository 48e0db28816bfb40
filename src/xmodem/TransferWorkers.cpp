#include "xmodem/TransferWorkers.h"

// File transfers are not part of this build: no worker is ever started, so none runs,
// none posts a status, and there is none to stop.

bool XmodemSendWorkerRuns() { return false; }

bool XmodemReceiveWorkerRuns() { return false; }

void StopTransferWorkers() {}

void ShowSendStatus() {}

void ShowReceiveStatus() {}
