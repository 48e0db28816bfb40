#include "ui/EventQueue.h"

#include <cassert>
#include <mutex>

#include "base/Numbers.h"
#include "ui/BoundHandlers.h"
#include "ui/CurrentEvent.h"
#include "ui/EventPool.h"
#include "ui/InterfaceLayer.h"
#include "ui/WaitEnd.h"

namespace {

// Flags of the queue's own, beside those that callers give. A record whose bound handlers
// are running is current somewhere up the stack: who drops it leaves it to the procedure
// that runs them.
constexpr uint32_t kHandlersRunning = 0x100;
constexpr uint32_t kOutOfQueue = 0x200;

// It guards the four variables below and the pool. It is not held while handlers run, so
// that a post from another thread returns at once even while a handler shows a dialog.
std::recursive_mutex queueLock;
InterfaceEvent* first = nullptr;
InterfaceEvent* last = nullptr;
int count = 0;
bool blocked = false;

InterfaceEvent* taken = nullptr;  // the event taken last; interface thread alone

using QueueGuard = std::lock_guard<std::recursive_mutex>;

// At the end of the queue; order is first in, first out.
void Append(InterfaceEvent* record) {
    (last ? last->next : first) = record;
    last = record;
    ++count;
}

// The first record, taken off the queue.
InterfaceEvent* Unlink() {
    InterfaceEvent* record = first;
    first = record->next;
    if (!first) last = nullptr;
    record->next = nullptr;
    --count;
    return record;
}

// Lets go of a record that left the queue untaken.
void Discard(InterfaceEvent* record) {
    if (record->flags & kHandlersRunning) {
        record->flags |= kOutOfQueue;
    } else {
        FreeEventRecord(record);
    }
}

// Only the newest event is looked at: what lies before another one happened before it.
bool MergesWithLast(const InterfaceEvent& event) {
    return last && event.number <= kLastLayerEvent && !(event.flags & kEventUnmerged) &&
           last->number == event.number && last->object == event.object &&
           last->window == event.window && last->type == event.type;
}

// The queued event takes over the newer data: of a burst the last state counts. One that
// was posted or typed keeps its own, and so does one whose handlers are reading it; the
// newer event then gets a record outside the queue, for its own handlers.
InterfaceEvent* Merge(const InterfaceEvent& event) {
    if (last->flags & (kHandlersRunning | kEventUnmerged)) {
        InterfaceEvent* record = NewEventRecord(event);
        record->flags |= kOutOfQueue;
        return record;
    }
    ReleaseEventData(*last);
    last->data = event.data;
    last->dataFree = event.dataFree;
    return last;
}

// The record that stands for the event from here on; null when it is dropped.
InterfaceEvent* Enter(const InterfaceEvent& event) {
    const QueueGuard guard(queueLock);
    if (blocked && !(event.flags & kEventUnblockable)) {
        InterfaceEvent dropped = event;
        ReleaseEventData(dropped);
        return nullptr;
    }
    if (MergesWithLast(event)) return Merge(event);
    InterfaceEvent* record = NewEventRecord(event);
    Append(record);
    return record;
}

// The handlers may raise, merge and drop events, this one too; see kHandlersRunning.
void RunHandlersNow(InterfaceEvent* record) {
    record->flags |= kHandlersRunning;
    RunBoundHandlers(*record);
    const QueueGuard guard(queueLock);
    record->flags &= ~kHandlersRunning;
    if (record->flags & kOutOfQueue) FreeEventRecord(record);
}

// Turns the queue once round and leaves out what the test picks.
template <typename Test>
void DropIf(Test test) {
    assert(OnInterfaceThread());
    const QueueGuard guard(queueLock);
    for (int left = count; left > 0; --left) {
        InterfaceEvent* record = Unlink();
        if (test(*record)) {
            Discard(record);
        } else {
            Append(record);
        }
    }
}

}  // namespace

void PostInterfaceEvent(int32_t number, int64_t window, int64_t object, int64_t type, void* data) {
    InterfaceEvent event;
    event.number = number;
    event.flags = kEventUnblockable | kEventUnmerged | kEventPosted;
    event.object = object;
    event.window = window;
    event.type = type;
    event.data = data;
    const QueueGuard guard(queueLock);
    Append(NewEventRecord(event));
    WakeInterfaceThread();  // under the lock, so that the layer cannot end meanwhile
}

void RaiseInterfaceEvent(const InterfaceEvent& event) {
    assert(OnInterfaceThread());
    InterfaceEvent* record = Enter(event);
    if (!record) return;
    if (!(event.flags & kEventUnmerged)) RunHandlersNow(record);
}

// The event before it, and its data, live until the next one is taken.
bool TakeQueuedEvent() {
    assert(OnInterfaceThread());
    {
        const QueueGuard guard(queueLock);
        if (!first) return false;
        MakeEventCurrent(nullptr);
        FreeEventRecord(taken);
        taken = Unlink();
        MakeEventCurrent(taken);
    }
    if (taken->flags & kEventUnmerged) RunBoundHandlers(*taken);
    return true;
}

void BlockInterfaceEvents(bool block) {
    assert(OnInterfaceThread());
    const QueueGuard guard(queueLock);
    blocked = block;
}

void DropQueuedEvents(int32_t number, int64_t object) {
    DropIf([=](const InterfaceEvent& e) { return e.number == number && e.object == object; });
}

void DropWindowEvents(int64_t window) {
    DropIf(
        [=](const InterfaceEvent& e) { return e.window == window && !(e.flags & kEventPosted); });
}

void DropAllEvents() {
    DropIf([](const InterfaceEvent&) { return true; });
    const QueueGuard guard(queueLock);
    MakeEventCurrent(nullptr);
    FreeEventRecord(taken);
    taken = nullptr;
    EmptyEventPool();
}

int QueuedEventCount() {
    const QueueGuard guard(queueLock);
    return count;
}

bool EventIsQueued(int32_t number, int64_t object, int64_t window) {
    const QueueGuard guard(queueLock);
    for (const InterfaceEvent* e = first; e; e = e->next) {
        if (e->number == number && e->object == object && e->window == window) return true;
    }
    return false;
}
