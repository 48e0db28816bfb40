// A row of buttons for function keys. This form of the window does not create it; its
// numbers are routed all the same.
#pragma once

// Sends the key's sequence, ESC [ n ~, by the button's number, and gives the terminal the
// focus. Interface thread.
void FunctionKeyButtonClicked(int gadget);
