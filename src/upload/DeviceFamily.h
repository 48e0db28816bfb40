// The device family table: one row for each kind of board.
#pragma once

#include <QString>
#include <vector>

struct DeviceFamily {
    QString Fname;      // family word; compared in lower case
    QString autostart;  // command that opens program-receive mode
    QString autoend;    // what ends it, in the escape language of macros
    int autoName = 0;   // kept, not read
    int drives = 0;     // 0: no drive, the device pane starts in flash view
    int xmName = 0;     // kept, not read
    QString filesCMD;   // command that lists files
    int filesAll = 0;   // kept, not read
    int ninth = 0;      // the column without a name; kept, not read
    int flash = 0;      // 1: the device has the flash commands
    int fnstart = 0;    // 1-based column of the name in a listing line; 0: first word
};

extern const std::vector<DeviceFamily>& deviceFamilies;

// Parses one "|"-separated row of eleven columns.
DeviceFamily ParseFamilyRow(const QString& row);
// The same columns as one row.
QString FormatFamilyRow(const DeviceFamily& family);

void ClearFamilies();
void AddFamily(const DeviceFamily& family);
// Adds the built-in rows, skipping empty slots.
void AddDefaultFamilies();
// The first row whose name equals `name` without regard to case; null for none.
const DeviceFamily* FindFamily(const QString& name);
