#include "ui/events/CurrentEvent.h"

#include <cassert>

#include "ui/events/CurrentEventInternal.h"
#include "ui/events/EventQueue.h"
#include "ui/events/InterfaceThread.h"

namespace {

// What the accessors read before the first event: number 0, no window, no object.
const InterfaceEvent noEvent;
const InterfaceEvent* current = &noEvent;

}  // namespace

const InterfaceEvent* MakeEventCurrent(const InterfaceEvent* event) {
    const InterfaceEvent* before = current;
    current = event ? event : &noEvent;
    return before;
}

// Other threads have no current event; their messages carry all they say.
const InterfaceEvent& CurrentEvent() {
    assert(OnInterfaceThread());
    return *current;
}

int32_t EventNumber() {
    return CurrentEvent().number;
}

int64_t EventWindow() {
    return CurrentEvent().window;
}

int64_t EventObject() {
    return CurrentEvent().object;
}

int64_t EventType() {
    return CurrentEvent().type;
}
