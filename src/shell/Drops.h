// Files and text dropped on the main window. Interface thread.
#pragma once

// Event 10: the dropped files go to the device.
void HandleWindowDrop();
// Event 11 on the terminal: files likewise; a text is uploaded as a program.
void HandleTerminalDrop();
