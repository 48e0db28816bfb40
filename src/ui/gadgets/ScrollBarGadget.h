// A scroll bar with positions `minimum` to `maximum` - `pageLength`. A move by the user
// raises event 3 with type 0; a change by the program raises nothing.
#pragma once

enum class ScrollDirection { kHorizontal, kVertical };

void ScrollBarGadget(int gadget, int x, int y, int width, int height, int minimum, int maximum,
                     int pageLength, ScrollDirection direction);
