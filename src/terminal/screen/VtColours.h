// Select graphic rendition. Interface thread.
#pragma once

#include "terminal/screen/VtSequence.h"

// The final "m".
void SelectGraphics(VtSequence* sequence);
