// The clipboard typed into the device. Interface thread.
#pragma once

// Sends each line of the clipboard with the line ending; above 0, waits `delay`
// milliseconds behind each.
void PasteClipboard(int delay);
