// Gadget events of the main window.
#include "base/Numbers.h"
#include "base/TextRules.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/SerialPort.h"
#include "shell/CommandHistory.h"
#include "shell/Dispatch.h"
#include "shell/FunctionKeyRow.h"
#include "shell/Macros.h"
#include "shell/Presets.h"
#include "shell/StoredDevice.h"
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/Selection.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/AddKeyboardShortcut.h"
#include "ui/Gadgets.h"
#include "ui/InterfaceEvent.h"
#include "upload/DeviceSpec.h"
#include "upload/UploadOptions.h"
#include "upload/UploadProgram.h"

namespace {

// Key codes as the toolkit counts them.
constexpr int kKeyReturn = 0x01000004;
constexpr int kKeyUp = 0x01000013;
constexpr int kKeyDown = 0x01000015;
constexpr int kKeyF10 = 0x01000039;
constexpr int kKeyShiftF10 = 0x03000039;
constexpr char kEscape[] = "\x1b";

void OverrideClicked(int) {
    SetOverrideFileSettings(GadgetState(kOverrideCheck) != 0);
}

void FamilyTextChanged(int) {
    SetFamilyName(GadgetText(kFamilyTextUnused));
    BuildDeviceSpec();
}

void UploadClicked(int) {
    UploadProgram();
}

void TouchClicked(int) {
    SetPicoPort(GadgetText(kPortCombo));
    SerialTouch1200();
}

void SpeedPicked(int) {
    SetSerialSpeed(GadgetText(kSpeedCombo));
    BuildDeviceSpec();
}

// The port's name is kept in upper case: a port picked here is opened under that name.
void PortPicked(int) {
    SetComPort(GadgetText(kPortCombo).toUpper());
    ChooseTransport(linkSettings.comPort == "TCPIP");
    BuildDeviceSpec();
}

void FamilyPicked(int) {
    BuildDeviceSpec();
}

void OptionPicked(int) {
    QString word = GadgetText(kOptionsCombo);
    if (!word.contains('\\')) word += '\\';
    const QString spec = GadgetText(kSpecEntry);
    if (!spec.contains(word)) SetGadgetText(kSpecEntry, spec + " " + word);
    BuildDeviceSpec();
}

void MouseClicked(int) {
    SetMouseMode(1 - mouseMode);
}

void SavePresetClicked(int) {
    SaveDevicePreset();
}

void ConnectClicked(int) {
    ConnectDevice();
    FocusGadget(kTerminalCanvas);
}

void DisconnectClicked(int) {
    DisconnectDevice();
}

void SendClicked(int) {
    SubmitCommandBar(false);
}

void SendCrClicked(int) {
    SubmitCommandBar(true);
}

void ClearCommandClicked(int) {
    SetGadgetText(kCommandEntry, QString());
    FocusGadget(kCommandEntry);
}

void AddressFocused(int) {
    AddKeyboardShortcut(kMainWindow, kKeyReturn, kShortcutAddressReturn);
}

void AddressLeft(int) {
    RemoveKeyboardShortcut(kMainWindow, kKeyReturn);
}

void CommandFocused(int) {
    AddKeyboardShortcut(kMainWindow, kKeyReturn, kShortcutCommandReturn);
    AddKeyboardShortcut(kMainWindow, kKeyUp, kShortcutHistoryPrevious);
    AddKeyboardShortcut(kMainWindow, kKeyDown, kShortcutHistoryNext);
}

void CommandLeft(int) {
    for (int key : {kKeyReturn, kKeyUp, kKeyDown}) RemoveKeyboardShortcut(kMainWindow, key);
}

void SaveMacroClicked(int) {
    SaveMacro();
}

void EscClicked(int) {
    SendCommandLine(kEscape, false);
    FocusGadget(kTerminalCanvas);
}

// One rule for all of 131 to 145, so the button named for Ctrl+Z sends byte 15.
void ControlClicked(int gadget) {
    SendCommandLine(ByteText(gadget - kControlByteBase), false);
    FocusGadget(kTerminalCanvas);
}

void ClsClicked(int) {
    ClearTerminal(kTerminalCanvas);
    FocusGadget(kTerminalCanvas);
}

void RunClicked(int) {
    SendCommandLine("RUN", true);
    FocusGadget(kTerminalCanvas);
}

void PreviousClicked(int) {
    HistoryPrevious();
}

void NextClicked(int) {
    HistoryNext();
}

void Nothing(int) {}

void TerminalFocused(int) {
    AddKeyboardShortcut(kMainWindow, kKeyF10, kShortcutF10);
    AddKeyboardShortcut(kMainWindow, kKeyShiftF10, kShortcutShiftF10);
    PaintTerminalFrame(true);
}

void TerminalLeft(int) {
    RemoveKeyboardShortcut(kMainWindow, kKeyF10);
    RemoveKeyboardShortcut(kMainWindow, kKeyShiftF10);
    PaintTerminalFrame(false);
}

void TerminalInput(int) {
    HandleTerminalInput();
}

void TerminalKey(int) {
    HandleTerminalKey();
}

void TerminalClicked(int) {
    if (mouseMode) SendMouseReport();
}

void TerminalPointerMoved(int) {
    const bool left = EventAttribute(kTerminalCanvas, kAttributeButtons) & kButtonLeft;
    if (left && !mouseMode) ExtendSelection();
}

void TerminalButtonUp(int) {
    if (!mouseMode) FinishSelection();
}

struct GadgetRow {
    int first, last;  // gadget numbers
    int64_t type;     // sub-type, kAnyType for all
    void (*procedure)(int gadget);
};

// Several rows name gadgets that this form of the window does not create; they stand idle.
// clang-format off
const GadgetRow gadgetRows[] = {
    {kOverrideCheck,          kOverrideCheck,          kAnyType,          OverrideClicked},
    {kFamilyTextUnused,       kFamilyTextUnused,       kAnyType,          FamilyTextChanged},
    {kUploadButtonUnused,     kUploadButtonUnused,     kAnyType,          UploadClicked},
    {kTouchButtonUnused,      kTouchButtonUnused,      kAnyType,          TouchClicked},
    {kSpeedCombo,             kSpeedCombo,             kAnyType,          SpeedPicked},
    {kPortCombo,              kPortCombo,              kAnyType,          PortPicked},
    {kOptionsCombo,           kOptionsCombo,           kAnyType,          OptionPicked},
    {kMouseButton,            kMouseButton,            kAnyType,          MouseClicked},
    {kFamilyCombo,            kFamilyCombo,            kAnyType,          FamilyPicked},
    {kFirstPresetButton,      kLastPresetRoute,        kAnyType,          PresetButtonClicked},
    {kSavePresetButton,       kSavePresetButton,       kAnyType,          SavePresetClicked},
    {kConnectButton,          kConnectButton,          kAnyType,          ConnectClicked},
    {kDisconnectButton,       kDisconnectButton,       kAnyType,          DisconnectClicked},
    {kSendButton,             kSendButton,             kAnyType,          SendClicked},
    {kSendCrButton,           kSendCrButton,           kAnyType,          SendCrClicked},
    {kClearCommandButton,     kClearCommandButton,     kAnyType,          ClearCommandClicked},
    {kAddressEntry,           kAddressEntry,           kTypeFocus,        AddressFocused},
    {kAddressEntry,           kAddressEntry,           kTypeLostFocus,    AddressLeft},
    {kCommandEntry,           kCommandEntry,           kTypeFocus,        CommandFocused},
    {kCommandEntry,           kCommandEntry,           kTypeLostFocus,    CommandLeft},
    {kIdleButton,             kIdleButton,             kAnyType,          Nothing},
    {kFirstFunctionKeyButton, kLastFunctionKeyButton,  kAnyType,          FunctionKeyButtonClicked},
    {kFirstMacroButton,       kLastMacroButton,        kAnyType,          MacroButtonClicked},
    {kSaveMacroButton,        kSaveMacroButton,        kAnyType,          SaveMacroClicked},
    {kEscButton,              kEscButton,              kAnyType,          EscClicked},
    {kFirstControlButton,     kLastControlButton,      kAnyType,          ControlClicked},
    {kClsButton,              kClsButton,              kAnyType,          ClsClicked},
    {kRunButton,              kRunButton,              kAnyType,          RunClicked},
    {kHistoryPreviousButton,  kHistoryPreviousButton,  kAnyType,          PreviousClicked},
    {kHistoryNextButton,      kHistoryNextButton,      kAnyType,          NextClicked},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeFocus,        TerminalFocused},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeLostFocus,    TerminalLeft},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeInput,        TerminalInput},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeKeyDown,      TerminalKey},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeLeftClick,    TerminalClicked},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeMouseMove,    TerminalPointerMoved},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeLeftButtonUp, TerminalButtonUp},
};
// clang-format on

}  // namespace

void DispatchGadget(int64_t gadget, int64_t type) {
    for (const GadgetRow& row : gadgetRows) {
        const bool held = gadget >= row.first && gadget <= row.last;
        if (held && (row.type == kAnyType || row.type == type)) {
            return row.procedure(static_cast<int>(gadget));
        }
    }
}
