// Procedures bound to events. They run from the layer itself; the event is queued all the
// same. Interface thread.
#pragma once

#include <cstdint>

constexpr int64_t kAny = -2;  // in a binding or a route: every window, object or sub-type

using EventHandler = void (*)();

// Binds a procedure to a key. One that stands under the same key is replaced; null
// removes it.
void BindHandler(int32_t number, int64_t window, int64_t object, int64_t type,
                 EventHandler handler);

// The same for a menu item.
void BindMenuHandler(int item, EventHandler handler);

void DropAllHandlers();
