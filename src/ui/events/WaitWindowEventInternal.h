// Ending a wait for an event.
#pragma once

// Ends a sleep of WaitForEvent, because the queue has an event. For posts, from any thread,
// made under the queue's lock, which keeps StopWaiting away. Nothing on the interface
// thread, which looks at the queue after whatever it did.
void WakeInterfaceThread();
