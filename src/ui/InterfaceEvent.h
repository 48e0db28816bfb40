// One event of the interface and the queue of them. The queue is the only way into
// the program's logic: widgets, timers and other threads put events in, the main loop
// takes them out one at a time, in order, with no priority.
#pragma once

#include <cstdint>

constexpr int64_t kNone = -1;  // no object, no window
constexpr int64_t kAny = -2;   // in a binding or a route: every window, object or sub-type

// Delivered even while events are blocked.
constexpr uint32_t kEventUnblockable = 1;
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

using EventHandler = void (*)();

// Adds an event with flags 7 and returns at once; it wakes the interface thread. Any
// thread: the only call of this layer that other threads may make.
void PostInterfaceEvent(int32_t number, int64_t window, int64_t object, int64_t type,
                        void* data = nullptr);

// Adds an event as the layer's own sources do: blocked events are dropped, an event
// equal in number, object, window and type to the newest queued one is merged with
// it, and unless kEventUnmerged is set the bound handlers run before this returns.
// `event.data` is released by the queue in every case. Interface thread.
void RaiseInterfaceEvent(const InterfaceEvent& event);

// While blocked, events without kEventUnblockable are dropped. Interface thread.
void BlockInterfaceEvents(bool blocked);

// Removes all queued events of this number and object. Interface thread.
void DropQueuedEvents(int32_t number, int64_t object);

// Number of events in the queue. Interface thread.
int QueuedEventCount();

// Binds a procedure to a menu item. It runs from the layer itself; the event is queued all
// the same. A second binding under the same key replaces the first. Interface thread.
void BindMenuHandler(int item, EventHandler handler);

// The fields of the current event: the one taken last, or, inside a bound handler,
// the one that the handler runs for. Interface thread.
int32_t EventNumber();
int64_t EventWindow();
int64_t EventObject();
int64_t EventType();

// A canvas attribute (base/Numbers.h) of the current event; 0 unless the current
// event belongs to `gadget` and carries canvas data. Interface thread.
int EventAttribute(int gadget, int attribute);
