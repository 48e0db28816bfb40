// A check box. A click raises event 3 with type 0; state 1 is ticked.
#pragma once

#include <QString>

void CheckBoxGadget(int gadget, int x, int y, int width, int height, const QString& text);
