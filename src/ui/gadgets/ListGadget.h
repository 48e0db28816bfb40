// A plain list of text rows with multiple selection. A click raises event 3 with type
// 0, a double click with type 2.
#pragma once

void ListGadget(int gadget, int x, int y, int width, int height);
