// A device specification from the gadgets of the window. Interface thread.
#pragma once

// Rebuilds the device specification from the window's gadgets and applies it. The field itself
// keeps what the user typed.
void BuildDeviceSpec();
