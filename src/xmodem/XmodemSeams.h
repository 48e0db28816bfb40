// What tests put in place of the loop under a transfer. No code of the program includes it but
// the file that holds the seam.
#pragma once

// A procedure that takes the posted events whenever a worker's body is about to sleep on its
// semaphore, for tests that run the body on the interface thread. nullptr for none.
void SetServeBeforeWait(void (*procedure)());
