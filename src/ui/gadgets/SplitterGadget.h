// A splitter between two existing gadgets, left and right. Its state is the position in
// pixels of the bar. The gadgets move into it.
#pragma once

void SplitterGadget(int gadget, int x, int y, int width, int height, int first, int second);
