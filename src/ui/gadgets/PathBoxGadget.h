// An editable path box that completes folder names from the file system. Raises event
// 3 with type 4 whenever the text changes or is set, by the program too, and with type 5
// when a path is chosen by Return or from the completion list.
#pragma once

#include <QString>

void PathBoxGadget(int gadget, int x, int y, int width, int height, const QString& path);
