// What the settings file holds: one row for each key, with the variable in its owner's
// record, the default and the rule. LoadSettings and SaveSettings both walk the table
// from top to bottom. The variables are the owners'; this table alone may fill them.
#pragma once

#include <QString>
#include <climits>
#include <cstdint>
#include <vector>

enum class SettingKind {
    kGroup,
    kComment,      // written by SaveSettings
    kBothComment,  // added by LoadSettings as well
    kNumber,
    kText,
    kColour,  // "$" and hexadecimal digits in BBGGRR order
    kList,    // numbered keys, see SettingsLists.h
};

// When a row is read. Rows are always written in their turn.
enum class ReadTurn { kInTurn, kEndOfGroup };

// A value below `least` becomes `instead`, one above `most` becomes `most`.
struct NumberRule {
    int least = INT_MIN;
    int instead = 0;
    int most = INT_MAX;
};

struct SettingRow {
    SettingKind kind;
    const char* name;  // of the group or key; a comment's text
    ReadTurn turn = ReadTurn::kInTurn;
    int* number = nullptr;  // of a group: set to whether the file has it
    QString* text = nullptr;
    uint32_t* colour = nullptr;
    int64_t fallback = 0;            // default of a number or colour
    const char* fallbackText = "";   // default of a text
    NumberRule rule = {};            // of a number
    QString (*ifEmpty)() = nullptr;  // gives the text that stands for an empty one
    void (*load)() = nullptr;        // of a list
    void (*save)() = nullptr;
};

extern const std::vector<SettingRow>& settingsTable;

// Before a save: takes over what the program keeps elsewhere while it runs: the terminal's
// mode, the line ending and the two device entries of the window.
void TakeLiveValues();
// After a load: hands mode, line ending, transport and colour scheme to those who keep them.
void GiveLiveValues();
