#include "terminal/input/Paste.h"

#include "terminal/screen/NotBuilt.h"

void PasteClipboard(int) { TellNotBuilt("Pasting text"); }
