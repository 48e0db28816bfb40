// What the settings file holds: one row for each key, with the variable in its owner's
// record, the default and the rule. LoadSettings and SaveSettings both walk the table
// from top to bottom. The variables are the owners'; this table alone may fill them.
#pragma once

#include <QString>
#include <climits>
#include <cstdint>
#include <variant>
#include <vector>

// What a row is, with the variable in its owner's record.
struct GroupSetting {
    int* found = nullptr;  // set to whether the file has the group; such a one is the last
};
struct CommentSetting {
    bool atLoad = false;  // added by LoadSettings as well
};
// A value below `least` becomes `instead`, one above `most` becomes `most`.
struct NumberRule {
    int least = INT_MIN;
    int instead = 0;
    int most = INT_MAX;
};
struct NumberSetting {
    int* value;
    int fallback;
    NumberRule rule = {};
};
struct TextSetting {
    QString* value;
    const char* fallback;
    QString (*ifEmpty)() = nullptr;  // gives the text that stands for an empty one
};
struct ColourSetting {  // "$" and hexadecimal digits in BBGGRR order
    uint32_t* value;
    uint32_t fallback;
};
struct ListSetting {  // numbered keys, see SettingsLists.h
    void (*load)(const char* prefix);
    void (*save)(const char* prefix);
};

// When a row is read. Rows are always written in their turn.
enum class ReadTurn { kInTurn, kEndOfGroup };

struct SettingRow {
    const char* name;  // of the group or key; a list's prefix; a comment's text
    std::variant<GroupSetting, CommentSetting, NumberSetting, TextSetting, ColourSetting,
                 ListSetting>
        what;
    ReadTurn turn = ReadTurn::kInTurn;
};

extern const std::vector<SettingRow>& settingsTable;

// Before a save: takes over what the program keeps elsewhere while it runs: the terminal's
// mode, the line ending and the two device entries of the window.
void TakeLiveValues();
// After a load: hands mode, line ending, transport and colour scheme to those who keep them.
void GiveLiveValues();
