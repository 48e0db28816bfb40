// Place and division of the file manager window, stored in the settings.
#pragma once

#include <QString>

constexpr int kPcListColumns = 3;  // name, size, date

struct FileManagerSettings {
    int x = 200, y = 200;                          // of the frame, in pixels
    int width = 700, height = 287;                 // of the inner area
    int splitter = 300;                            // position, in pixels
    int columns[kPcListColumns] = {250, 90, 130};  // widths, in pixels
    QString pcFolder;  // folder that the PC list shows; the documents folder when none is stored
};

extern const FileManagerSettings& fileManagerSettings;
FileManagerSettings& FileManagerSettingsForTable();  // for the settings table alone

// Each on the interface thread.
void SetFileManagerPlace(int x, int y, int width, int height);
void SetFileManagerSplitter(int position);
void SetPcColumnWidth(int column, int width);  // columns 0 to 2; others are ignored
void SetPcFolder(const QString& folder);
