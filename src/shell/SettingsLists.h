// The settings that are lists: numbered keys in the current group of the open store. A
// key that is missing or empty is skipped when reading, and what is written is numbered
// without gaps; `prefix` is what stands before the number. For the settings table; interface
// thread.
#pragma once

constexpr int kFamilyKeys = 31;   // Type0 to Type30
constexpr int kHistoryKeys = 31;  // Cmd0 to Cmd30; one more than the history keeps

void LoadFamilies(const char* prefix);
void SaveFamilies(const char* prefix);
void LoadPresets(const char* prefix);
void SavePresets(const char* prefix);
void LoadHistory(const char* prefix);
void SaveHistory(const char* prefix);
void LoadMacros(const char* prefix);
void SaveMacros(const char* prefix);
