// The settings that are lists: numbered keys in the current group of the open store. A
// key that is missing or empty is skipped when reading, and what is written is numbered
// without gaps. For the settings table; interface thread.
#pragma once

constexpr int kFamilyKeys = 31;   // Type0 to Type30
constexpr int kHistoryKeys = 31;  // Cmd0 to Cmd30; one more than the history keeps

void LoadFamilies();
void SaveFamilies();
void LoadPresets();
void SavePresets();
void LoadHistory();
void SaveHistory();
void LoadMacros();
void SaveMacros();
