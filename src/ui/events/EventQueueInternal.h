// The way out of the queue. Interface thread.
#pragma once

// Takes the first event and makes it current; bound handlers of an unmerged one run now.
// False, with the current event left as it is, when the queue is empty.
bool TakeQueuedEvent();
