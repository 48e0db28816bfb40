// Start-up, the main loop and shutdown: the three stages of the program, never re-entered.
// Interface thread.
#pragma once

// The whole program. Its exit status, 0.
int RunProgram(int argc, char** argv);
