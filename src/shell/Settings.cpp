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

int ReadNumber(const SettingRow& row) {
    return ByRule(row.rule, ReadPreferenceLong(row.name, static_cast<int32_t>(row.fallback)));
}

QString ReadText(const SettingRow& row) {
    const QString text = ReadPreferenceString(row.name, row.fallbackText);
    return text.isEmpty() && row.ifEmpty ? row.ifEmpty() : text;
}

// The digits are hexadecimal also where somebody left out the "$".
uint32_t ReadColour(const SettingRow& row) {
    QString text = ReadPreferenceString(row.name, FormatColour(row.fallback));
    if (!text.startsWith('$')) text.prepend('$');
    return static_cast<uint32_t>(TextToInteger(text)) & kColourMask;
}

void LoadGroup(const SettingRow& row) {
    const bool found = PreferenceGroup(row.name);
    if (row.number) *row.number = found;
}

void LoadRow(const SettingRow& row) {
    switch (row.kind) {
        case SettingKind::kGroup:
            LoadGroup(row);
            break;
        case SettingKind::kComment:
            break;
        // Reading adds this comment as writing does, so the store counts as changed and
        // the file is written back, or created, by a mere load. That is meant to be.
        case SettingKind::kBothComment:
            PreferenceComment(row.name);
            break;
        case SettingKind::kNumber:
            *row.number = ReadNumber(row);
            break;
        case SettingKind::kText:
            *row.text = ReadText(row);
            break;
        case SettingKind::kColour:
            *row.colour = ReadColour(row);
            break;
        case SettingKind::kList:
            row.load();
            break;
    }
}

void SaveRow(const SettingRow& row) {
    switch (row.kind) {
        case SettingKind::kGroup:
            PreferenceGroup(row.name);
            break;
        case SettingKind::kComment:
        case SettingKind::kBothComment:
            PreferenceComment(row.name);
            break;
        case SettingKind::kNumber:
            WritePreferenceLong(row.name, *row.number);
            break;
        case SettingKind::kText:
            WritePreferenceString(row.name, *row.text);
            break;
        case SettingKind::kColour:
            WritePreferenceString(row.name, FormatColour(*row.colour));
            break;
        case SettingKind::kList:
            row.save();
            break;
    }
}

// A group that is written only where the file had it. It is the table's last.
bool IsLeftOut(const SettingRow& row) {
    return row.kind == SettingKind::kGroup && row.number && !*row.number;
}

void SaveRows() {
    for (const SettingRow& row : settingsTable) {
        if (IsLeftOut(row)) return;
        SaveRow(row);
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
        if (row.kind == SettingKind::kGroup) loadLate();
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
