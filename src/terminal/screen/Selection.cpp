#include "terminal/screen/Selection.h"

#include "terminal/screen/NotBuilt.h"

// A pointer move comes dozens of times a second: with no selection in this build it is
// dropped without a word, and so is the release.
void ExtendSelection() {}

void FinishSelection() {}

void CopyTerminalText(int) { TellNotBuilt("Copying the terminal's text"); }

void SaveTerminalText(int) { TellNotBuilt("Saving the terminal's text"); }
