// Watching one descriptor for input. Interface thread.
#pragma once

// Raises the event of a window's timer, as if it had fired, once when `fd` can be read or
// has failed. Then nothing is watched until the next call, so that input which nobody takes
// does not keep the program awake. `fd` stays open until ForgetInput or another one's call.
void FireTimerOnInput(int fd, int window, int timer);
bool InputIsAwaited();
// Before `fd` is closed.
void ForgetInput();
