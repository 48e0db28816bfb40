#include "shell/ShellSettings.h"

namespace {

ShellSettings settings;

}  // namespace

const ShellSettings& shellSettings = settings;

ShellSettings& ShellSettingsForTable() {
    return settings;
}

void SetPresetGroup(int group) {
    settings.presetGroup = group;
}

void SetLastUsedPreset(int index) {
    settings.lastUsedPreset = index;
}
