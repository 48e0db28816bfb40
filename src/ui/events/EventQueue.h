// One event of the interface and the queue of them. The queue is the only way into
// the program's logic: widgets, timers and other threads put events in, the main loop
// takes them out one at a time, in order, with no priority.
#pragma once

#include <cstdint>

constexpr int64_t kNone = -1;  // no object, no window

// Never merged; bound handlers run when it is taken, not when it is raised.
constexpr uint32_t kEventUnmerged = 2;
// Posted by the program.
constexpr uint32_t kEventPosted = 4;

struct InterfaceEvent {
    int32_t number = 0;                 // event number of base/Numbers.h
    uint32_t flags = 0;                 // the bits above
    int64_t object = kNone;             // gadget, menu item or timer number
    int64_t window = kNone;             // window number
    int64_t type = 0;                   // sub-type of a gadget event
    void* data = nullptr;               // event data, or a 64-bit value
    void (*dataFree)(void*) = nullptr;  // releases `data`, if set
};

// Adds an event, unmerged, and returns at once; it wakes the interface thread. Any thread:
// the only call of the user interface that other threads may make.
void PostInterfaceEvent(int32_t number, int64_t window, int64_t object, int64_t type,
                        void* data = nullptr);

// Adds an event as the layer's own sources do: one equal in number, object, window and type
// to the newest queued one is merged with it, and unless kEventUnmerged is set the bound
// handlers run before this returns. `event.data` is released by the queue in every case.
// Interface thread, as all that follows.
void RaiseInterfaceEvent(const InterfaceEvent& event);

// True when an event of this number, object and window waits in the queue.
bool EventIsQueued(int32_t number, int64_t object, int64_t window);

int QueuedEventCount();

// Removes all queued events of this number and object.
void DropQueuedEvents(int32_t number, int64_t object);

// Drops what the layer's own sources raised for a window. Posted events are the
// program's messages and stay.
void DropWindowEvents(int64_t window);

// Drops every queued event and the current one.
void DropAllEvents();
