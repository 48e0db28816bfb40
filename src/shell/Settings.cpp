#include "shell/Settings.h"

#include <QString>
#include <algorithm>

#include "base/AppPaths.h"
#include "base/Numbers.h"
#include "base/TextRules.h"
#include "shell/PreferencesStore.h"
#include "shell/PreferencesText.h"
#include "shell/SettingsTable.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/drawing/Fonts.h"
#include "upload/DeviceFamily.h"

namespace {

constexpr char kFixedFont[] = "Liberation Mono";
constexpr int kInterfaceFontSize = 8;         // points
constexpr uint32_t kColourMask = 0x00FFFFFF;  // BBGGRR

int ByRule(const NumberRule& rule, int value) {
    return value < rule.least ? rule.instead : std::min(value, rule.most);
}

// Reading, in one form for each kind of row.

void Load(const char* name, const GroupSetting& group) {
    const bool found = PreferenceGroup(name);
    if (group.found) *group.found = found;
}

// Reading adds a comment as writing does, so the store counts as changed and the file is
// written back, or created, by a mere load. That is meant to be.
void Load(const char* name, const CommentSetting& comment) {
    if (comment.atLoad) PreferenceComment(name);
}

void Load(const char* name, const NumberSetting& number) {
    *number.value = ByRule(number.rule, ReadPreferenceLong(name, number.fallback));
}

void Load(const char* name, const TextSetting& setting) {
    const QString text = ReadPreferenceString(name, setting.fallback);
    *setting.value = text.isEmpty() && setting.ifEmpty ? setting.ifEmpty() : text;
}

// The digits are hexadecimal also where somebody left out the "$".
void Load(const char* name, const ColourSetting& colour) {
    QString text = ReadPreferenceString(name, FormatColour(colour.fallback));
    if (!text.startsWith('$')) text.prepend('$');
    *colour.value = static_cast<uint32_t>(TextToInteger(text)) & kColourMask;
}

void Load(const char* prefix, const ListSetting& list) {
    list.load(prefix);
}

// Writing.

void Save(const char* name, const GroupSetting&) {
    PreferenceGroup(name);
}
void Save(const char* name, const CommentSetting&) {
    PreferenceComment(name);
}
void Save(const char* name, const NumberSetting& number) {
    WritePreferenceLong(name, *number.value);
}
void Save(const char* name, const TextSetting& setting) {
    WritePreferenceString(name, *setting.value);
}
void Save(const char* name, const ColourSetting& colour) {
    WritePreferenceString(name, FormatColour(*colour.value));
}
void Save(const char* prefix, const ListSetting& list) {
    list.save(prefix);
}

void LoadRow(const SettingRow& row) {
    std::visit([&row](const auto& what) { Load(row.name, what); }, row.what);
}

// A group that is written only where the file had it. It is the table's last.
bool IsLeftOut(const SettingRow& row) {
    const auto* group = std::get_if<GroupSetting>(&row.what);
    return group && group->found && !*group->found;
}

void SaveRows() {
    for (const SettingRow& row : settingsTable) {
        if (IsLeftOut(row)) return;
        std::visit([&row](const auto& what) { Save(row.name, what); }, row.what);
    }
}

// The rows in reading order: those that are read late come when their group ends.
void LoadRows() {
    std::vector<const SettingRow*> late;
    const auto loadLate = [&late] {
        for (const SettingRow* row : late) LoadRow(*row);
        late.clear();
    };
    for (const SettingRow& row : settingsTable) {
        if (std::holds_alternative<GroupSetting>(row.what)) loadLate();
        if (row.turn == ReadTurn::kEndOfGroup) {
            late.push_back(&row);
        } else {
            LoadRow(row);
        }
    }
    loadLate();
}

// Font 58 takes the size of the terminal's font but not its name; that is meant.
void LoadFixedFonts() {
    LoadNumberedFont(kInterfaceFont, kFixedFont, kInterfaceFontSize, kFontPlain);
    LoadNumberedFont(kTerminalEntryFont, kFixedFont, terminalSettings.fontSize, kFontPlain);
}

}  // namespace

void LoadSettings() {
    OpenPreferences(SettingsPath(), kPreferenceGroupSpace);
    LoadRows();
    ClosePreferences();
    GiveLiveValues();
    LoadFixedFonts();
    if (deviceFamilies.empty()) AddDefaultFamilies();
}

void SaveSettings() {
    TakeLiveValues();
    CreatePreferences(SettingsPath(), kPreferenceGroupSpace);
    SaveRows();
    ClosePreferences();
}
