// The commands of the Action menu that go to the device. Interface thread.
#pragma once

// Sends the command of item 13, 14, 16, 17, 21, 22 or 23; the terminal then gets the
// focus, but for List All.
void SendActionCommand(int item);
