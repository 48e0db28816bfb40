// Showing what was painted, without the event loop. Interface thread.
#pragma once

// Brings every canvas, text and button that changed to the screen now, without taking
// any event. For procedures that block; SleepMs calls it by itself.
void FlushPainting();
