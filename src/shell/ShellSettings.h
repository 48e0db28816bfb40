// The settings that belong to no other folder.
#pragma once

#include <QString>

struct ShellSettings {
    int presetGroup = 0;           // 1 when the last used preset lies beyond the first ten; unused
    int lastUsedPreset = 0;        // index into presetList; from the file, so it may lie outside
    QString activeDevice;          // nickname, "|", specification, as they stood at the last save
    QString device = "micromite";  // read and written only
};

extern const ShellSettings& shellSettings;
ShellSettings& ShellSettingsForTable();  // for the settings table alone

// Each on the interface thread.
void SetPresetGroup(int group);
void SetLastUsedPreset(int index);
