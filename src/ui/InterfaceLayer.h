// The layer's own start and end. Everything else in this folder needs it started.
#pragma once

// Creates the toolkit's application object and the layer's tables, and registers
// FlushPainting to run before every sleep of the calling thread, which from here on
// is the interface thread. `argc` and `argv` must outlive the layer.
void StartInterfaceLayer(int& argc, char** argv);

// Closes all windows and drops all queued events, timers and shortcuts.
void EndInterfaceLayer();

// True on the thread that called StartInterfaceLayer.
bool OnInterfaceThread();
