#include "terminal/screen/ColourScheme.h"

#include "base/Numbers.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/windows/MenuItem.h"

void SetSchemeColours() {
    UseSchemeColours();
    ResetDimColour();
}

// The parser's pending colours keep the old scheme's defaults until the device sets them.
void SwitchDarkBackground() {
    SetDarkBackground(terminalSettings.darkBackground == 0);
    UseSchemeColours();
    SetMenuItemTick(kItemDarkBackground, terminalSettings.darkBackground != 0);
    ClearTerminal(kTerminalCanvas);
    TerminalRepaint();
}
