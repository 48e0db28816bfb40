#include "help/HelpViewer.h"

#include "terminal/screen/NotBuilt.h"

void ShowHelpViewer() { TellNotBuilt("The help window"); }

// With no window open these have nothing to act on.
void ResizeHelpViewer() {}

void CloseHelpViewer() {}

void HelpButtonClicked(int) {}
