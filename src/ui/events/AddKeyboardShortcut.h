// Keyboard shortcuts of a window. Each raises event 1 with its number. Interface thread.
#pragma once

// `key` is the toolkit's key code with its modifier bits, such as 0x08000043 for Alt+C.
// A shortcut that exists for the key is replaced.
void AddKeyboardShortcut(int window, int key, int number);

// Removes the shortcut of a key; -1 removes all of the window.
void RemoveKeyboardShortcut(int window, int key);
