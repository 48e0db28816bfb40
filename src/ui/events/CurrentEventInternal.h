// Changing the current event. Interface thread.
#pragma once

struct InterfaceEvent;

// Makes an event current and returns the one that was. The record stays its owner's,
// who puts the old one back before the record goes. Null leaves no event current.
const InterfaceEvent* MakeEventCurrent(const InterfaceEvent* event);
