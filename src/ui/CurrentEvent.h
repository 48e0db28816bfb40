// Which event is the current one. Interface thread.
#pragma once

#include "ui/InterfaceEvent.h"

// Makes an event current and returns the one that was. The record stays its owner's,
// who puts the old one back before the record goes. Null leaves no event current.
const InterfaceEvent* MakeEventCurrent(const InterfaceEvent* event);

// The current event; an empty one when there is none.
const InterfaceEvent& CurrentEvent();
