// Lists of files, moved one at a time in each direction. A transfer that ends posts an
// event, and its handler steps the queue to the next name. Each direction has one way in
// with three kinds of command: a list of names, kQueueNext and kQueueAbort. A file that
// fails does not stop its queue. Interface thread.
#pragma once

#include <QString>

// The command that steps a queue to its next file, and the one that empties it.
extern const QString kQueueNext;
extern const QString kQueueAbort;

// A list of full paths, one a line, to the device; a command of its own for the rest. It
// blocks for two seconds or more: the link is the queue's while it takes a step.
void BatchSend(const QString& command);

// A list of names on the device, one a line, into the folder that the PC's list shows.
void BatchReceive(const QString& command);

// One file to the device: a "uf2" touches the port, a text goes as a program unless
// `useXmodem` is set, all else by a worker. Nothing more is done when there is no link.
void SendFile(const QString& path, bool useXmodem);

// Empties both queues and stops what runs. Handler of the button "Abort".
void AbortTransfers();
