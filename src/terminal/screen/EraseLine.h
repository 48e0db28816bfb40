// Erasing in the line of the cursor. Interface thread.
#pragma once

// 0 from the cursor on, 1 up to the cursor, 2 all.
void TerminalEraseLine(int mode);
