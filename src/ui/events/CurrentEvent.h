// The current event: the one taken last, or, inside a bound handler, the one that the
// handler runs for. Interface thread.
#pragma once

#include <cstdint>

struct InterfaceEvent;

// An empty one when there is none.
const InterfaceEvent& CurrentEvent();

// Its fields.
int32_t EventNumber();
int64_t EventWindow();
int64_t EventObject();
int64_t EventType();
