#include "shell/DeviceGadgets.h"

#include <QString>

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "link/Connection.h"
#include "link/LinkSettings.h"
#include "shell/Macros.h"
#include "shell/Presets.h"
#include "shell/ShellSettings.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/Gadgets.h"
#include "upload/DeviceSpec.h"

namespace {

constexpr int kPortsOfAKind = 4;  // ttyUSB0 to 3, ttyACM0 to 3
constexpr int kLastPresetOfGroup0 = 9;

void ShowPreset(const PresetEntry& preset) {
    SetGadgetText(kNicknameEntry, preset.nickname);
    SetGadgetText(kSpecEntry, preset.spec);
    ApplyDeviceSpec(preset.spec);
}

}  // namespace

void FillPresetAndMacroButtons() {
    for (size_t i = 0; i < presetList.size(); ++i) {
        LabelButton(kFirstPresetButton + static_cast<int>(i), presetList[i].nickname);
    }
    for (size_t i = 0; i < macroList.size(); ++i) {
        LabelButton(kFirstMacroButton + static_cast<int>(i), macroList[i].label);
    }
    const int last = shellSettings.lastUsedPreset;
    if (!presetList.empty()) {
        const bool held = last >= 0 && static_cast<size_t>(last) < presetList.size();
        ShowPreset(presetList[held ? static_cast<size_t>(last) : 0]);
    }
    if (last > kLastPresetOfGroup0) SetPresetGroup(1);
}

void ChooseTransport(bool tcp) {
    HideGadget(kAddressEntry, !tcp);
    HideGadget(kSpeedCombo, tcp);
    SetDeviceOnTcpip(tcp);
}

void ShowStoredLink() {
    SetGadgetText(kPortCombo, linkSettings.comPort);
    SetGadgetText(kSpeedCombo, linkSettings.serialSpeed);
    const bool tcp = linkSettings.comPort == "TCPIP";
    if (tcp) SetGadgetText(kAddressEntry, linkSettings.tcpAddress + ":" + linkSettings.tcpPort);
    ChooseTransport(tcp);
    ShowStoredDevice();
}

void ShowStoredDevice() {
    SetGadgetText(kNicknameEntry, FieldOf(shellSettings.activeDevice, 1, '|'));
    SetGadgetText(kSpecEntry, FieldOf(shellSettings.activeDevice, 2, '|'));
}

void FillPortList() {
    ClearGadgetItems(kPortCombo);
    for (const char* kind : {"ttyUSB", "ttyACM"}) {
        for (int i = 0; i < kPortsOfAKind; ++i) {
            AddGadgetItem(kPortCombo, kind + QString::number(i));
        }
    }
    AddGadgetItem(kPortCombo, "TCPIP");
    SetGadgetText(kPortCombo, linkStatus.deviceOnTcpip ? QString("TCPIP") : linkSettings.comPort);
}

void ApplyNamedPreset() {
    const QString nickname = GadgetText(kNicknameEntry);
    if (nickname.isEmpty()) return;
    for (const PresetEntry& preset : presetList) {
        if (preset.nickname != nickname) continue;
        SetGadgetText(kSpecEntry, preset.spec);
        ApplyDeviceSpec(preset.spec);
        return;
    }
}
