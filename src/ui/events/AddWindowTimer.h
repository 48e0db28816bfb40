// Window timers. Each firing raises event 15 with the timer's number as object.
// Interface thread.
#pragma once

// Starts a timer; one of that number in the window is replaced.
void AddWindowTimer(int window, int timer, int periodMs);

// Stops a timer and drops its queued events. Nothing for an unknown one.
void RemoveWindowTimer(int window, int timer);

// Raises a timer's event now, unless its last one still waits.
void FireWindowTimer(int window, int timer);
