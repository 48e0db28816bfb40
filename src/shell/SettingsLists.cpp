#include "shell/SettingsLists.h"

#include <QString>
#include <QStringList>

#include "base/TextRules.h"
#include "shell/CommandHistory.h"
#include "shell/Macros.h"
#include "shell/PreferencesStore.h"
#include "shell/Presets.h"
#include "upload/DeviceFamily.h"

namespace {

QStringList ReadNumbered(const char* prefix, int count) {
    QStringList values;
    for (int i = 0; i < count; ++i) {
        const QString value = ReadPreferenceString(prefix + QString::number(i), QString());
        if (!value.isEmpty()) values += value;
    }
    return values;
}

void WriteNumbered(const char* prefix, const QStringList& values) {
    for (int i = 0; i < values.size(); ++i) {
        WritePreferenceString(prefix + QString::number(i), values[i]);
    }
}

}  // namespace

// A row of the file that says "autostart" is from the time when the column's name had
// been taken for the command.
void LoadFamilies(const char* prefix) {
    ClearFamilies();
    for (const QString& row : ReadNumbered(prefix, kFamilyKeys)) {
        DeviceFamily family = ParseFamilyRow(row);
        if (family.autostart == "autostart") family.autostart = "autosave";
        AddFamily(family);
    }
}

void SaveFamilies(const char* prefix) {
    QStringList rows;
    for (const DeviceFamily& family : deviceFamilies) {
        if (!family.Fname.isEmpty()) rows += FormatFamilyRow(family);
    }
    WriteNumbered(prefix, rows);
}

// The device specification is all that stands behind the first "|".
void LoadPresets(const char* prefix) {
    ClearPresets();
    for (const QString& value : ReadNumbered(prefix, kMostPresets)) {
        const QString nickname = FieldOf(value, 1, '|');
        AddPreset({nickname, value.mid(nickname.size() + 1)});
    }
}

void SavePresets(const char* prefix) {
    QStringList values;
    for (const PresetEntry& preset : presetList) {
        if (!preset.spec.isEmpty()) values += preset.nickname + "|" + preset.spec;
    }
    WriteNumbered(prefix, values);
}

void LoadHistory(const char* prefix) {
    QStringList commands = ReadNumbered(prefix, kHistoryKeys);
    SetHistory({commands.begin(), commands.end()});
}

void SaveHistory(const char* prefix) {
    WriteNumbered(prefix, {historyList.begin(), historyList.end()});
}

// Two fields alone: a macro text is cut at its first "|".
void LoadMacros(const char* prefix) {
    ClearMacros();
    for (const QString& value : ReadNumbered(prefix, kMostMacros)) {
        AddMacro({FieldOf(value, 1, '|'), FieldOf(value, 2, '|')});
    }
}

void SaveMacros(const char* prefix) {
    QStringList values;
    for (const MacroEntry& macro : macroList) values += macro.label + "|" + macro.text;
    WriteNumbered(prefix, values);
}
