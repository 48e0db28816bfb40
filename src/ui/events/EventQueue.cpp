#include "ui/events/EventQueue.h"

#include <algorithm>
#include <cassert>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>

#include "base/Numbers.h"
#include "ui/events/BoundHandlersInternal.h"
#include "ui/events/CurrentEventInternal.h"
#include "ui/events/EventQueueInternal.h"
#include "ui/events/InterfaceThread.h"
#include "ui/events/WaitWindowEventInternal.h"

namespace {

// An event and a share of its data: whoever runs an event holds a record of its own, so that
// the queue may merge or drop its one meanwhile.
struct Record {
    explicit Record(const InterfaceEvent& given) : event(given) {
        if (event.dataFree) data.reset(event.data, event.dataFree);
    }
    InterfaceEvent event;
    std::shared_ptr<void> data;
};

// It guards the queue. It is not held while handlers run, so that a post from
// another thread returns at once even while a handler shows a dialog.
std::recursive_mutex queueLock;
std::deque<Record> queue;

Record taken((InterfaceEvent()));  // the event taken last; interface thread alone

using QueueGuard = std::lock_guard<std::recursive_mutex>;

bool IsUnmerged(const InterfaceEvent& event) {
    return event.flags & kEventUnmerged;
}

// Only the newest event is looked at: what lies before another one happened before it.
bool MergesWithLast(const InterfaceEvent& event) {
    if (queue.empty() || event.number > kLastLayerEvent || IsUnmerged(event)) return false;
    const InterfaceEvent& last = queue.back().event;
    return last.number == event.number && last.object == event.object &&
           last.window == event.window && last.type == event.type;
}

// Of a burst the last state counts. An event that was posted or typed keeps its own data.
void Enter(const Record& record) {
    const QueueGuard guard(queueLock);
    if (!MergesWithLast(record.event)) {
        queue.push_back(record);
    } else if (!IsUnmerged(queue.back().event)) {
        queue.back() = record;
    }
}

template <typename Test>
void DropIf(Test test) {
    assert(OnInterfaceThread());
    const QueueGuard guard(queueLock);
    const auto dropped = [&](const Record& record) { return test(record.event); };
    queue.erase(std::remove_if(queue.begin(), queue.end(), dropped), queue.end());
}

}  // namespace

void PostInterfaceEvent(int32_t number, int64_t window, int64_t object, int64_t type, void* data) {
    InterfaceEvent event;
    event.number = number;
    event.flags = kEventUnmerged | kEventPosted;
    event.object = object;
    event.window = window;
    event.type = type;
    event.data = data;
    const QueueGuard guard(queueLock);
    queue.emplace_back(event);
    WakeInterfaceThread();  // under the lock, so that the layer cannot end meanwhile
}

void RaiseInterfaceEvent(const InterfaceEvent& event) {
    assert(OnInterfaceThread());
    const Record record(event);
    Enter(record);
    if (!IsUnmerged(event)) RunBoundHandlers(record.event);
}

// The event before it, and its data, live until the next one is taken.
bool TakeQueuedEvent() {
    assert(OnInterfaceThread());
    {
        const QueueGuard guard(queueLock);
        if (queue.empty()) return false;
        taken = std::move(queue.front());
        queue.pop_front();
        MakeEventCurrent(&taken.event);
    }
    if (IsUnmerged(taken.event)) RunBoundHandlers(taken.event);
    return true;
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
    MakeEventCurrent(nullptr);
    taken = Record((InterfaceEvent()));
}

int QueuedEventCount() {
    const QueueGuard guard(queueLock);
    return static_cast<int>(queue.size());
}

bool EventIsQueued(int32_t number, int64_t object, int64_t window) {
    const QueueGuard guard(queueLock);
    return std::any_of(queue.begin(), queue.end(), [=](const Record& record) {
        const InterfaceEvent& e = record.event;
        return e.number == number && e.object == object && e.window == window;
    });
}
