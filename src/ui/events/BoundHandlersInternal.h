// Running what is bound to an event. Interface thread.
#pragma once

struct InterfaceEvent;

// Runs what is bound to the event, with its fields current meanwhile. The keys are tried
// in the order (number, window, object, type), (number, window, object, any), (number,
// window, any, any), (number, any, any, any), (number, any, object, type); each that
// holds a procedure has it run.
void RunBoundHandlers(const InterfaceEvent& event);

// True while a bound handler runs.
bool HandlersAreRunning();
