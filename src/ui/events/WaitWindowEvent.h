// Taking the next event. Interface thread.
#pragma once

#include <cstdint>

// No event came within the time; no event has this number.
constexpr int32_t kNoEvent = 0;

// Takes the next event, makes its fields current and returns its number. With an
// empty queue it serves the toolkit for up to `timeoutMs` milliseconds (0: what is
// ready now; below 0: without limit) and looks again; kNoEvent when nothing came. An
// event posted from another thread ends the wait at once. Not reentrant: a handler
// never calls it (asserted).
int32_t WaitForEvent(int timeoutMs);

// Creates and removes what WaitForEvent sleeps on.
void StartWaiting();
void StopWaiting();

// The procedure that each wait for an event calls first; nullptr for none.
void SetBeforeWait(void (*procedure)());
