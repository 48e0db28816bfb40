#include "ui/CurrentEvent.h"

#include <cassert>

#include "ui/InterfaceLayer.h"

namespace {

const InterfaceEvent noEvent;
const InterfaceEvent* current = &noEvent;

}  // namespace

const InterfaceEvent* MakeEventCurrent(const InterfaceEvent* event) {
    const InterfaceEvent* before = current;
    current = event ? event : &noEvent;
    return before;
}

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
