// From cells to pixels. Writing, erasing and the cursor use the row's writing y, scroll
// and repaint a y two pixels higher; both are meant. Interface thread.
#pragma once

// Paints the canvas from the model, and puts the current colours back to the defaults.
void TerminalRepaint();
// Moves the picture by n lines, positive when the view moves forward, and paints the
// rows that were uncovered.
void TerminalScrollView(int n);
// One phase of the cursor bar.
void NotifyCursorBlink();
// The scroll bar was moved by the user or the wheel.
void ScrollBarChanged();
// Fills the frame around the terminal: with or without the keyboard focus.
void PaintTerminalFrame(bool focused);
