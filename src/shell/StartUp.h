// Start-up, the main loop and shutdown: the three stages of the program, never re-entered.
// Interface thread.
#pragma once

// The whole program. Its exit status, 0.
int RunProgram(int argc, char** argv);

// The window with all that stands in it, as start-up builds it once the settings are read
// and the link's buffers allocated.
void BuildWindow();

// All that the program does behind its main loop: the settings are saved, the link, the
// timers, the servers and the workers end, and the windows close.
void ShutDown();
