#include "terminal/screen/TerminalMode.h"

#include "base/Numbers.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/MenuItem.h"

namespace {

std::atomic<int> mode{kModeTerminal};
int mouse = 0;

const char* const kModeNames[kModes] = {"VT Terminal", "External VT helper", "Monitor",
                                        "HEX monitor", "File Manager"};

}  // namespace

const std::atomic<int>& terminalMode = mode;
const int& mouseMode = mouse;

void SetTerminalMode(int value) {
    mode = value >= 0 && value < kModes ? value : kModeTerminal;
}

QString TerminalModeName(int value) {
    return value >= 0 && value < kModes ? kModeNames[value] : QString();
}

void ShowTerminalMode(int value) {
    SetTerminalMode(value);
    TickOneOf(kFirstModeItem, kLastModeItem, kFirstModeItem + mode);
    SetGadgetText(kModeText, TerminalModeName(mode));
}

void SetMouseMode(int value) {
    mouse = value;
    SetGadgetState(kMouseButton, mouse != 0);
}
