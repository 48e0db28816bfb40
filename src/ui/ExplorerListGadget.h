// A list of a folder's contents in three columns: name, size and date. Multiple
// selection; a double click on a folder enters it, and each change of folder raises
// event 3 with type 768. Its text is the folder, ending in "/"; item text is a row's
// name.
#pragma once

#include <QString>

void ExplorerListGadget(int gadget, int x, int y, int width, int height, const QString& folder);
