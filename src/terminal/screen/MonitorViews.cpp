#include "terminal/screen/MonitorViews.h"

#include "terminal/screen/NotBuilt.h"

void TerminalPrintRaw(const void*, int64_t) { TellNotBuilt("The plain monitor"); }

void TerminalHexDump(const void*, int64_t) { TellNotBuilt("The HEX monitor"); }
