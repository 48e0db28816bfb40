// Which thread is the interface thread. Any thread.
#pragma once

// Makes the calling thread the interface thread.
void BecomeInterfaceThread();

bool OnInterfaceThread();
