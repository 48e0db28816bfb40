// The simpler driver of the file manager: a file into main memory and from there into a
// flash slot. Interface thread.
#pragma once

#include <QString>

// With a slot below 0: reads the file and arms. With 0 or above: uploads what was read,
// and overwrites that slot when it is not 0.
void FlashSlotUpload(const QString& path, int slot);

// A file was read and waits for the click on its target row.
bool SlotUploadArmed();
