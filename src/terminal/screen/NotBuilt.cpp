#include "terminal/screen/NotBuilt.h"

#include "terminal/screen/TerminalScreen.h"

void TellNotBuilt(const QString& what) {
    TerminalPrintLine(what + " is not part of this build.");
}
