// The default colours and the switch of the scheme.
#include "base/Numbers.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "ui/MenuItem.h"

void SetSchemeColours() {
    SetDefaultColours(terminalSettings.darkBackground != 0);
    SetCurrentColours(terminalScreen.defaultFg, terminalScreen.defaultBg);
    ResetDimColour();
}

// The parser's pending colours keep the old scheme's defaults until the device sets them.
void SwitchDarkBackground() {
    SetDarkBackground(!terminalScreen.darkBackground);
    SetDefaultColours(terminalSettings.darkBackground != 0);
    SetCurrentColours(terminalScreen.defaultFg, terminalScreen.defaultBg);
    SetMenuItemTick(kItemDarkBackground, terminalScreen.darkBackground);
    ClearTerminal(kTerminalCanvas);
    TerminalRepaint();
}
