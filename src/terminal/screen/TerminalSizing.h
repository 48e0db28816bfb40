// The size of the terminal. Interface thread.
#pragma once

// Start of the terminal: fonts, canvas size, `rows` lines, ClearTerminal.
void SetUpTerminal();

// 1 if the size changed, 0 if not. A value of 0 or less leaves its side as it is; one
// beyond the bounds of TerminalScreen.h is cut to them.
int SetTerminalSize(int cols, int rows);
// ClearTerminal, ShowTerminalSize, resize of the window, LayoutMainWindow.
void ApplyTerminalSize();
// SetTerminalSize and ApplyTerminalSize for a size that the device asks for. During a feed
// the window itself follows at the feed's end, by FinishRemoteResize, so that a flood of
// such requests lays it out once.
void RemoteResize(int cols, int rows);
void FinishRemoteResize();
// TerminalRepaint, on a picture that has the terminal's size from then on.
void RepaintAtFullSize();
void AskTerminalSize();
void RestoreDefaultTerminalSize();
// The font dialog and what follows on acceptance.
void AskTerminalFont();
