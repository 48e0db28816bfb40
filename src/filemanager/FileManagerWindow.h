// The two-pane window: files of the PC on the left, of the device on the right.
// Interface thread.
#pragma once

#include <QString>

void OpenFileManager();
void CloseFileManager();
// Window 161 was resized; gadgets 162, 163 and 180 raised an event.
void ResizeFileManager();
void PcListChanged();
void DeviceListClicked();
void PathBoxChanged();
// A chunk of what the device printed, in file manager mode.
void ParseListingChunk(const QString& text);
// Asks the device for its listing.
void RefreshDeviceList();
