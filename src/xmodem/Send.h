// Storing one file on the device.
#pragma once

struct XmodemJob;

// The body of the send worker: has the device receive `secondName` and sends it the file
// `firstName`. Ends by posting kEventSendDone.
void XmodemSendWorker(XmodemJob& job);
