// Where received bytes go, and who owns the mouse.
#pragma once

#include <QString>
#include <atomic>

constexpr int kModeTerminal = 0;
constexpr int kModeHelper = 1;
constexpr int kModeMonitor = 2;
constexpr int kModeHexMonitor = 3;
constexpr int kModeFileManager = 4;
constexpr int kModes = 5;

// Index into the mode names, 0 to 4. Server workers read it as well.
extern const std::atomic<int>& terminalMode;
void SetTerminalMode(int mode);  // clamped to 0 to 4
QString TerminalModeName(int mode);
// Sets the mode and shows it: the tick of its menu item, its name below the terminal.
// Interface thread.
void ShowTerminalMode(int mode);

// 0: the mouse works locally. Non-zero: clicks are reported to the device.
extern const int& mouseMode;
void SetMouseMode(int value);
