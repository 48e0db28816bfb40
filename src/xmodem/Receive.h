// Fetching one file from the device.
#pragma once

struct XmodemJob;

// The body of the receive worker: has the device send `firstName` and stores it as
// `secondName`. Ends by posting kEventReceiveDone.
void XmodemReceiveWorker(XmodemJob& job);
