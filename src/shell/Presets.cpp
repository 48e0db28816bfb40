#include "shell/Presets.h"

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "link/Connection.h"
#include "shell/ShellSettings.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Notice.h"
#include "upload/DeviceSpec.h"

namespace {

constexpr int kStillConnectedPeriod = 4000;  // milliseconds

std::vector<PresetEntry> presets;

int Size() {
    return static_cast<int>(presets.size());
}

// A specification that is to stand at the head of a source becomes a comment there.
QString AsDirective(const QString& spec) {
    const QString lower = spec.toLower();
    for (const char* start : {"'onload", "' onload", "'target"}) {
        if (lower.startsWith(start)) return spec;
    }
    return spec.isEmpty() ? spec : "'target " + spec;
}

bool ReplacePreset(const PresetEntry& preset) {
    bool found = false;
    for (PresetEntry& entry : presets) {
        if (entry.nickname != preset.nickname) continue;
        entry.spec = preset.spec;
        found = true;
    }
    return found;
}

}  // namespace

const std::vector<PresetEntry>& presetList = presets;

void AddPreset(const PresetEntry& preset) {
    if (Size() < kMostPresets) presets.push_back(preset);
}

void ClearPresets() {
    presets.clear();
}

void PresetButtonClicked(int gadget) {
    const int index = gadget - kFirstPresetButton;
    if (index < 0 || index >= Size()) return;
    if (index != shellSettings.lastUsedPreset && linkStatus.linkConnected) {
        ShowNotice("You are still connected!!!", kStillConnectedPeriod);
    }
    SetLastUsedPreset(index);
    const PresetEntry& preset = presets[static_cast<size_t>(index)];
    SetGadgetText(kSpecEntry, preset.spec);
    SetGadgetText(kNicknameEntry, preset.nickname);
    ApplyDeviceSpec(GadgetText(kSpecEntry));
}

void SaveDevicePreset() {
    const QString nickname = TrimBlanks(GadgetText(kNicknameEntry));
    if (nickname.isEmpty()) return;
    const PresetEntry preset = {nickname, AsDirective(TrimBlanks(GadgetText(kSpecEntry)))};
    if (ReplacePreset(preset) || Size() >= kMostPresets) return;
    AddPreset(preset);
    LabelButton(kFirstPresetButton + Size() - 1, nickname);
}
