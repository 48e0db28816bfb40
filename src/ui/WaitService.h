// Serving the toolkit while a handler waits. Interface thread.
#pragma once

// Registers the service with the waits of base/Pacing.h, and takes it away again.
void StartWaitService();
void StopWaitService();

// Shows what was painted, has uncovered windows painted and the window manager answered, and
// looks whether the main window is to close, which then is a request to leave. What the user
// did stays with the toolkit; an event of another kind goes into the queue. No event is taken.
void ServeToolkit();
