#include "terminal/screen/TerminalMode.h"

#include <algorithm>

namespace {

std::atomic<int> mode{kModeTerminal};
int mouse = 0;

const char* const kModeNames[kModes] = {"VT Terminal", "External VT helper", "Monitor",
                                        "HEX monitor", "File Manager"};

}  // namespace

const std::atomic<int>& terminalMode = mode;
const int& mouseMode = mouse;

void SetTerminalMode(int value) {
    mode = std::clamp(value, 0, kModes - 1);
}

QString TerminalModeName(int value) {
    return value >= 0 && value < kModes ? kModeNames[value] : QString();
}

void SetMouseMode(int value) {
    mouse = value;
}
