#include "filemanager/FileManagerWindow.h"

#include "terminal/screen/NotBuilt.h"

void OpenFileManager() {
    TellNotBuilt("The file manager");
}

// With no window to close, resize or click, these have nothing to act on.
void CloseFileManager() {}

void ResizeFileManager() {}

void PcListChanged() {}

void DeviceListClicked() {}

void PathBoxChanged() {}

// In this mode what the device prints belongs to the listing, which this build lacks.
void ParseListingChunk(const QString&) {}

void RefreshDeviceList() {}
