// A list of a folder's contents in three columns: name, size and date. Multiple
// selection; a double click on a folder enters it and raises event 3 with type 768. Its
// text is the folder, ending in "/"; setting it lists the folder anew and raises nothing.
// A folder that cannot be listed leaves the list as it is. Item text is a row's name; the
// first row is "..", which leads up, except at the root.
#pragma once

#include <QString>

void ExplorerListGadget(int gadget, int x, int y, int width, int height, const QString& folder);
