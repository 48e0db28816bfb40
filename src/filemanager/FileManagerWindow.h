// The window of two panes: files of the PC on the left, of the device on the right.
// Interface thread.
#pragma once

// Opens the window (anew, if it stands) and asks the device for its list. Blocks for as
// long as that takes.
void OpenFileManager();

// Stores place, division and folder, closes the window and goes back to terminal mode 0.
void CloseFileManager();

// The window was resized: stores its size and fits the gadgets.
void ResizeFileManager();
