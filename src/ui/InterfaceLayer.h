// The layer's own start and end. Everything else in this folder needs it started.
#pragma once

// Creates the toolkit's application object and the layer's tables, and registers
// ServeToolkit to run in every wait of the calling thread, which from here on is the
// interface thread. SIGTERM, SIGINT and SIGHUP close the main window from here on. The
// toolkit sees the program's name alone of `argv`, which must outlive the layer.
void StartInterfaceLayer(char** argv);

// Closes all windows and drops all queued events, timers and shortcuts.
void EndInterfaceLayer();

// The procedure that keeps the user's work when the desktop session is about to end, or when
// the display is gone. The program goes on in the first case, since the user may still call
// that off.
void SaveAtSessionEnd(void (*save)());
