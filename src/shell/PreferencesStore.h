// A preferences file held in memory: parsed whole when it is opened, written back whole
// when it is closed and something changed. There is one store for each thread; every call
// works on the calling thread's.
//
// Keys and groups are found without regard to case, the first of two alike is the one
// used. The current position is the entry that was last selected, found or written:
// comments go behind it. New keys go to the end of the current group. Without an open
// store reads give their defaults and writes do nothing.
#pragma once

#include <QString>
#include <cstdint>

// Reads the file and parses it. `flags` are those of PreferencesText.h. A missing file leaves
// an empty store that closing writes once it was changed. True when a file was opened.
//
// Of a file that is longer than kLargestPreferences, or holds more than
// kMostPreferenceEntries, the store has the head, in whole lines, and so has the file once
// it is written. What cannot be read is never written: it may hold anything.
bool OpenPreferences(const QString& path, int flags);

// Starts an empty store that closing writes.
void CreatePreferences(const QString& path, int flags);

// Makes the first group of this name current. False when there is none: reads then give
// defaults until another group is chosen, and the first write or comment adds the group
// at the end of the file.
bool PreferenceGroup(const QString& name);

// Adds a comment behind the current position.
void PreferenceComment(const QString& text);

// The key's value as a decimal number by the rules of strtol(3), cut to its low 32 bits:
// 0 for what is no number. `fallback` when the group lacks the key.
int32_t ReadPreferenceLong(const QString& key, int32_t fallback);

// The key's value without blanks and tabs at its ends; an empty value is empty, not
// `fallback`.
QString ReadPreferenceString(const QString& key, const QString& fallback);

// Replaces the key's value in the current group, or adds the key.
void WritePreferenceLong(const QString& key, int32_t value);
void WritePreferenceString(const QString& key, const QString& value);

// Writes the store, if it was changed, to a new file that takes the place of the old one,
// and releases it. Where there is no room, or no right to do so, the old file stays as it is,
// without a word.
void ClosePreferences();
