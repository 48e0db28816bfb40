// The VT interpreter: four states, nine parameters and a fixed set of sequences of
// ECMA-48 and of the VT100. What it does not know it drops. A sequence may be split
// across any number of calls. Interface thread.
#pragma once

#include <QString>

// Runs text through the parser into the screen. Appends it to the capture first while
// capture is on.
void TerminalFeed(const QString& text);
