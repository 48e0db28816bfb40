// The size of the terminal. Interface thread.
#pragma once

// Start of the terminal: fonts, canvas size, `rows` lines, ClearTerminal.
void SetUpTerminal();

// 1 if the size changed, 0 if not. A value of 0 or less leaves its side as it is; one
// beyond the bounds of TerminalScreen.h is cut to them.
int SetTerminalSize(int cols, int rows);
// What follows a size, wherever it comes from: the terminal is cleared and the window fitted
// to it. During a feed, when the device asks for a size, the window follows at the feed's
// end, by FinishResize, so that a flood of such requests lays it out once.
void ApplyTerminalSize();
void FinishResize();
void AskTerminalSize();
void RestoreDefaultTerminalSize();
// The font dialog and what follows on acceptance.
void AskTerminalFont();
