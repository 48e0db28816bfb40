// The queue's inner side, for the files of this folder. Interface thread.
#pragma once

#include "ui/InterfaceEvent.h"

// Takes the first event and makes it current; bound handlers of an unmerged one run now.
// False, with the current event left as it is, when the queue is empty.
bool TakeQueuedEvent();

// True when an event of this number, object and window waits in the queue.
bool EventIsQueued(int32_t number, int64_t object, int64_t window);

// Drops what the layer's own sources raised for a window. Posted events are the
// program's messages and stay.
void DropWindowEvents(int64_t window);

// Drops every queued event and the current one.
void DropAllEvents();
