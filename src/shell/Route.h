// The rows that the dispatch tables are made of, and the loop over them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "ui/events/BoundHandlers.h"

// Takes the objects from `first` to `last`, and of those the ones of a sub-type, or all with
// kAny. What the two are is the table's: gadgets and what happened to them, menu items,
// timers, events and the gadget that they came from.
struct Route {
    int64_t first, last;
    int64_t type;
    void (*procedure)(int object);
};

// Runs the first row that takes the object. One that no row takes is dropped without a word.
template <size_t count>
void TakeRoute(const Route (&routes)[count], int64_t object, int64_t type = kAny) {
    for (const Route& route : routes) {
        const bool held = object >= route.first && object <= route.last;
        if (held && (route.type == kAny || route.type == type)) {
            return route.procedure(static_cast<int>(object));
        }
    }
}
