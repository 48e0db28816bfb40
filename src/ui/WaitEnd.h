// Ending a wait for an event.
#pragma once

// Creates and removes what WaitForEvent sleeps on. Interface thread.
void StartWaiting();
void StopWaiting();

// Ends a wait that is on, because the queue has an event. Any thread; another thread's
// call is made under the queue's lock, which keeps StopWaiting away.
void EndWait();
