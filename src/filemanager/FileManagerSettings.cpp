#include "filemanager/FileManagerSettings.h"

namespace {

FileManagerSettings settings;

}  // namespace

const FileManagerSettings& fileManagerSettings = settings;

FileManagerSettings& FileManagerSettingsForTable() {
    return settings;
}

void SetFileManagerPlace(int x, int y, int width, int height) {
    settings.x = x;
    settings.y = y;
    settings.width = width;
    settings.height = height;
}

void SetFileManagerSplitter(int position) {
    settings.splitter = position;
}

void SetPcColumnWidth(int column, int width) {
    if (column >= 0 && column < kPcListColumns) settings.columns[column] = width;
}

void SetPcFolder(const QString& folder) {
    settings.pcFolder = folder;
}
