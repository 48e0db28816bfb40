// The lines of the terminal, the oldest first. A ring of lines that are kept and used
// again: a scroll at the limit moves one line from the front to the end. Interface thread.
#pragma once

#include "terminal/screen/TerminalScreen.h"

// Null outside the list.
TerminalLine* LineAt(int element);
int LineCount();
// Empties the list, then appends `count` new lines.
void ResetLines(int count);
// Appends `count` new lines. Where the list would grow beyond `most`, the first line is
// deleted for each.
void AppendLines(int count, int most);
