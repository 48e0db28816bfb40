// Ending a wait for an event.
#pragma once

// Creates and removes what WaitForEvent sleeps on. Interface thread.
void StartWaiting();
void StopWaiting();

// The procedure that each wait for an event calls first; nullptr for none. Interface thread.
void SetBeforeWait(void (*procedure)());

// Ends a sleep of WaitForEvent, because the queue has an event. For posts, from any thread,
// made under the queue's lock, which keeps StopWaiting away. Nothing on the interface
// thread, which looks at the queue after whatever it did.
void WakeInterfaceThread();
