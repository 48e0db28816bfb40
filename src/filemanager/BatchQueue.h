// Lists of files, moved one at a time in each direction. Interface thread.
#pragma once

#include <QString>

// The command that steps a queue to its next file.
extern const QString kQueueNext;

// Starts a list of paths, one a line, or steps the queue.
void BatchSend(const QString& command);
void BatchReceive(const QString& command);
// One file to the device.
void SendFile(const QString& path, bool useXmodem);
