// Procedures bound to events, and running them. Interface thread.
#pragma once

#include "ui/InterfaceEvent.h"

// Binds a procedure to a key. One that stands under the same key is replaced; null
// removes it.
void BindHandler(int32_t number, int64_t window, int64_t object, int64_t type,
                 EventHandler handler);

// Runs what is bound to the event, with its fields current meanwhile. The keys are tried
// in the order (number, window, object, type), (number, window, object, any), (number,
// window, any, any), (number, any, any, any), (number, any, object, type); each that
// holds a procedure has it run.
void RunBoundHandlers(const InterfaceEvent& event);

// True while a bound handler runs.
bool HandlersAreRunning();

void DropAllHandlers();
