// The routing of every event: which number goes to which procedure. One table for each
// kind of event, each in a file of its own; an event that no table holds is dropped
// without a word. Interface thread.
#pragma once

#include <cstdint>

// Routes the current event by its window: the main window, the help window or the file
// manager. Sets exitRequested on the close event of the main window.
void DispatchEvent(int32_t event, int64_t window);

// Set by the close event of the main window; ends the main loop.
extern const bool& exitRequested;

// The tables' look-ups, called by DispatchEvent for the current event.
void DispatchGadget(int64_t gadget, int64_t type);
void DispatchMenu(int64_t item);
void DispatchTimer(int64_t timer);
void DispatchHelpWindow(int32_t event, int64_t gadget);
void DispatchFileManagerWindow(int32_t event, int64_t gadget);
