#include "ui/events/BoundHandlers.h"

#include <cassert>
#include <map>
#include <tuple>

#include "base/Numbers.h"
#include "ui/events/BoundHandlersInternal.h"
#include "ui/events/CurrentEventInternal.h"
#include "ui/events/EventQueue.h"
#include "ui/events/InterfaceThread.h"

namespace {

// Number, window, object, type; kAny where any will do.
using HandlerKey = std::tuple<int32_t, int64_t, int64_t, int64_t>;

std::map<HandlerKey, EventHandler> handlers;
int running = 0;  // handlers on the stack

// The procedure is looked up afresh for each key: one that ran may have changed the
// bindings.
void RunHandlerOf(const HandlerKey& key) {
    const auto found = handlers.find(key);
    if (found == handlers.end()) return;
    const EventHandler handler = found->second;
    ++running;
    handler();
    --running;
}

}  // namespace

// One procedure stands under a key, so that binding again at a second opening of a window
// does not make it run twice.
void BindHandler(int32_t number, int64_t window, int64_t object, int64_t type,
                 EventHandler handler) {
    assert(OnInterfaceThread());
    const HandlerKey key(number, window, object, type);
    if (handler) {
        handlers[key] = handler;
    } else {
        handlers.erase(key);
    }
}

// Menu events have type 0.
void BindMenuHandler(int item, EventHandler handler) {
    BindHandler(kEventMenu, kAny, item, 0, handler);
}

void RunBoundHandlers(const InterfaceEvent& event) {
    if (handlers.empty()) return;
    // A handler may raise events itself, whose handlers then run inside it.
    const InterfaceEvent* outer = MakeEventCurrent(&event);
    const HandlerKey keys[] = {
        {event.number, event.window, event.object, event.type},
        {event.number, event.window, event.object, kAny},
        {event.number, event.window, kAny, kAny},
        {event.number, kAny, kAny, kAny},
        {event.number, kAny, event.object, event.type},
    };
    for (const HandlerKey& key : keys) RunHandlerOf(key);
    MakeEventCurrent(outer);
}

bool HandlersAreRunning() {
    return running > 0;
}

void DropAllHandlers() {
    handlers.clear();
}
