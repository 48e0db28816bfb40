// The lines of the terminal, the oldest first. A ring of lines that are kept and used
// again: a scroll at the limit moves one line from the front to the end. Interface thread.
#pragma once

#include "terminal/screen/TerminalScreen.h"
#include "ui/Drawing.h"

struct KeptLine {
    TerminalLine line;
    int used = 0;       // highest slot written since the line was new
    KeptCells painted;  // the row as a scroll paints it, while the canvas holds it
};

// Null outside the list.
KeptLine* LineAt(int element);
int LineCount();
// Empties the list, then appends `count` new lines.
void ResetLines(int count);
// Appends `count` new lines. Where the list would grow beyond `most`, the first line is
// deleted for each.
void AppendLines(int count, int most);
