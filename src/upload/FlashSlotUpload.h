// The simpler driver of the file manager: a file into main memory and from there into a
// flash slot. It works in two calls, one that reads the file and one, made by a click on
// the target row, that uploads it. It takes its method from the row of the family table
// and knows no directives. Interface thread.
#pragma once

#include <QString>

// With a slot below 0: reads the file and arms. With 0 or above: uploads what was read,
// and overwrites that slot when it is not 0. Blocks until it is done; what the device
// says meanwhile is not shown by the poll.
void FlashSlotUpload(const QString& path, int slot);

// A file was read and waits for the click on its target row.
bool SlotUploadArmed();

// The procedure that asks the device for its list anew once an upload is over; it stands
// on a higher floor. nullptr for none.
void SetAfterFlashUpload(void (*procedure)());
