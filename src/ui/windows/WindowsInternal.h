// The table of windows by number. Interface thread.
#pragma once

class PBQMainWindow;

// The window of a number; null for none.
PBQMainWindow* FindWindow(int window);

// The program's window that has the keyboard, or else the one of the lowest number; null
// for none.
PBQMainWindow* ActiveProgramWindow();
