// Presets: whole device setups, each on a button of the first toolbar row. Interface
// thread.
#pragma once

#include <QString>
#include <vector>

constexpr int kMostPresets = 12;

struct PresetEntry {
    QString nickname;  // the button's label
    QString spec;      // device specification
};

// Entry i is shown on button kFirstPresetButton + i.
extern const std::vector<PresetEntry>& presetList;

// For the settings file. Beyond kMostPresets nothing is added.
void AddPreset(const PresetEntry& preset);
void ClearPresets();

// A click on a preset's button: shows the entry in gadgets 45 and 46 and applies it. A
// link that is open stays open; a notice says so. Nothing for a button without an entry.
void PresetButtonClicked(int gadget);

// Stores the texts of gadgets 45 and 46 under their nickname, over every entry that has
// it or as a new one at the end. Without a nickname, or with a new one while the list is
// full, nothing happens.
void SaveDevicePreset();
