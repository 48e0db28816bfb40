// The table of windows by number. Interface thread.
#pragma once

class PBQMainWindow;

// The window of a number; null for none.
PBQMainWindow* FindWindow(int window);

// Brings opened windows to the screen. That waits until the program next waits, sleeps or
// asks: a window gets its menu bar and gadgets first, and its frame is placed once, at the
// size that it is to have.
void ShowNewWindows();

// The program's window that has the keyboard, or else the one of the lowest number; null
// for none.
PBQMainWindow* ActiveProgramWindow();

// Shows what is dirty in every open window at once.
void PaintAllWindows();
