// The device's side of the file manager: asking for a listing and reading the answer.
// Asking only sends; the answer comes by the poll, chunk by chunk, and is sorted into
// list rows, lines of a program that is being saved and things to ignore. Interface
// thread.
#pragma once

#include <QString>
#include <QStringList>

#include "upload/DeviceFamily.h"

// Bounds on what a device can make the program hold. What lies beyond is dropped.
constexpr int kLongestListingLine = 65536;       // characters without a line end
constexpr int kMostDeviceEntries = 20000;        // rows
constexpr int kLargestProgramCapture = 4 << 20;  // characters

struct DeviceListing {
    // The rows in the making. In flash view row 0 is main memory and row n is slot n.
    QStringList deviceEntries;
    QString listingBuffer;        // text held between chunks
    QString programCapture;       // lines of a program being saved
    bool dropRestOfLine = false;  // the line under way belongs to what was dropped
    bool savingProgram = false;   // a listing goes to programCapture
    bool flashView = false;       // main memory and slots are shown, not the file system
};

extern const DeviceListing& deviceListing;

// The row of the family that the main window shows. A family without a row, such as
// vgamite, gets one with a drive, the list command "files" and no flash slots.
DeviceFamily ShownFamily();

// Clears the rows, shown and in the making, but for the first: "current program" in
// flash view, ".." otherwise.
void StartDeviceRows(const QString& first);

// Asks the device for its listing, or for its flash slots. Blocks for up to 700 ms.
void RefreshDeviceList();

// Changes between the file system and the flash slots, and asks anew.
void ToggleFlashView();

// Asks for a program, by "list all" or "flash list n"; it is saved when its listing ends.
void RequestProgram(int slot);

// A chunk of what the device printed, in file manager mode. At a prompt or a summary line
// the rows are shown, or the user is asked where the program goes.
void ParseListingChunk(const QString& text);
