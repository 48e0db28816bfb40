// The signals by which a system ends a program: SIGTERM, SIGINT and SIGHUP. Each is the
// closing of the main window. Interface thread.
#pragma once

// Takes the signals over; one that is ignored from outside (nohup) stays ignored.
void WatchEndSignals();

// Gives them back their usual effect.
void ForgetEndSignals();
