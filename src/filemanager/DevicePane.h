// The right half of the file manager: what its buttons and rows do to the device. All of
// it types commands at the device's prompt with timed waits between them, and blocks for
// as long. Interface thread, from event handlers.
#pragma once

// "<<<": the selected rows as files into the PC's folder; in flash view the program of
// the selected row, by its listing.
void CopyToPc();

// "Del": the selected files and folders; in flash view the selected slot. Files go only
// on families whose rows have a column for the name.
void DeleteOnDevice();

// "New folder", with a name that is asked for.
void NewDeviceFolder();

// A click or double click on a row of list 163: a folder is entered; a row on which a
// program waits to be loaded takes it.
void DeviceListClicked();
