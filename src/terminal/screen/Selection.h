// Text out of the terminal and into the link: selection by the mouse, copies, saves and
// pastes. Interface thread.
#pragma once

#include <QString>

constexpr int kTextVisible = 0;
constexpr int kTextAll = 1;
constexpr int kTextCapture = 2;

// The pointer moved over the canvas with the left button down.
void ExtendSelection();
// The left button was released over the canvas.
void FinishSelection();
// Puts the shown lines or all of them on the clipboard.
void CopyTerminalText(int what);
// Saves shown lines, all lines or the capture under a name that the user gives.
void SaveTerminalText(int what);
