// Gadget events of the main window.
#include "base/Numbers.h"
#include "base/TextRules.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/SerialPort.h"
#include "shell/CommandHistory.h"
#include "shell/DeviceGadgets.h"
#include "shell/Dispatch.h"
#include "shell/Macros.h"
#include "shell/Presets.h"
#include "shell/Route.h"
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/Selection.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/events/AddKeyboardShortcut.h"
#include "ui/events/BoundHandlers.h"
#include "ui/gadgets/Gadgets.h"
#include "upload/SpecRebuild.h"
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

// The port's name is kept in upper case: a port picked here is opened under that name.
void PortPicked(int) {
    SetComPort(GadgetText(kPortCombo).toUpper());
    ChooseTransport(linkSettings.comPort == "TCPIP");
    BuildDeviceSpec();
}

void OptionPicked(int) {
    QString word = GadgetText(kOptionsCombo);
    if (!word.contains('\\')) word += '\\';
    const QString spec = GadgetText(kSpecEntry);
    if (!spec.contains(word)) SetGadgetText(kSpecEntry, spec + " " + word);
    BuildDeviceSpec();
}

void CommandFocused(int) {
    AddKeyboardShortcut(kMainWindow, kKeyReturn, kShortcutCommandReturn);
    AddKeyboardShortcut(kMainWindow, kKeyUp, kShortcutHistoryPrevious);
    AddKeyboardShortcut(kMainWindow, kKeyDown, kShortcutHistoryNext);
}

// One rule for all of 131 to 145, so the button named for Ctrl+Z sends byte 15.
void ControlClicked(int gadget) {
    SendCommandLine(ByteText(gadget - kControlByteBase), false);
    FocusGadget(kTerminalCanvas);
}

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

void TerminalPointerMoved(int) {
    const bool left = EventAttribute(kTerminalCanvas, kAttributeButtons) & kButtonLeft;
    if (left && !mouseMode) ExtendSelection();
}

// Several rows name gadgets that this form of the window does not create; they stand idle.
// clang-format off
const Route gadgetRoutes[] = {
    {kOverrideCheck,          kOverrideCheck,          kAny,          [](int) { SetOverrideFileSettings(GadgetState(kOverrideCheck) != 0); }},
    {kFamilyTextUnused,       kFamilyTextUnused,       kAny,          [](int) { EditUploadOptions().familyName = GadgetText(kFamilyTextUnused); BuildDeviceSpec(); }},
    {kUploadButtonUnused,     kUploadButtonUnused,     kAny,          [](int) { UploadProgram(); }},
    {kTouchButtonUnused,      kTouchButtonUnused,      kAny,          [](int) { SetPicoPort(GadgetText(kPortCombo)); SerialTouch1200(); }},
    {kSpeedCombo,             kSpeedCombo,             kAny,          [](int) { SetSerialSpeed(GadgetText(kSpeedCombo)); BuildDeviceSpec(); }},
    {kPortCombo,              kPortCombo,              kAny,          PortPicked},
    {kOptionsCombo,           kOptionsCombo,           kAny,          OptionPicked},
    {kMouseButton,            kMouseButton,            kAny,          [](int) { SetMouseMode(1 - mouseMode); }},
    {kFamilyCombo,            kFamilyCombo,            kAny,          [](int) { BuildDeviceSpec(); }},
    {kFirstPresetButton,      kLastPresetRoute,        kAny,          PresetButtonClicked},
    {kSavePresetButton,       kSavePresetButton,       kAny,          [](int) { SaveDevicePreset(); }},
    {kConnectButton,          kConnectButton,          kAny,          [](int) { ConnectDevice(); FocusGadget(kTerminalCanvas); }},
    {kDisconnectButton,       kDisconnectButton,       kAny,          [](int) { DisconnectDevice(); }},
    {kSendButton,             kSendButton,             kAny,          [](int) { SubmitCommandBar(false); }},
    {kSendCrButton,           kSendCrButton,           kAny,          [](int) { SubmitCommandBar(true); }},
    {kClearCommandButton,     kClearCommandButton,     kAny,          [](int) { SetGadgetText(kCommandEntry, QString()); FocusGadget(kCommandEntry); }},
    {kAddressEntry,           kAddressEntry,           kTypeFocus,        [](int) { AddKeyboardShortcut(kMainWindow, kKeyReturn, kShortcutAddressReturn); }},
    {kAddressEntry,           kAddressEntry,           kTypeLostFocus,    [](int) { RemoveKeyboardShortcut(kMainWindow, kKeyReturn); }},
    {kCommandEntry,           kCommandEntry,           kTypeFocus,        CommandFocused},
    {kCommandEntry,           kCommandEntry,           kTypeLostFocus,    [](int) { for (int key : {kKeyReturn, kKeyUp, kKeyDown}) RemoveKeyboardShortcut(kMainWindow, key); }},
    {kIdleButton,             kIdleButton,             kAny,          [](int) {}},
    {kFirstFunctionKeyButton, kLastFunctionKeyButton,  kAny,          [](int gadget) { SendCommandLine(FunctionKeyCode(gadget - kFirstFunctionKeyButton + 1, false), false); FocusGadget(kTerminalCanvas); }},
    {kFirstMacroButton,       kLastMacroButton,        kAny,          MacroButtonClicked},
    {kSaveMacroButton,        kSaveMacroButton,        kAny,          [](int) { SaveMacro(); }},
    {kEscButton,              kEscButton,              kAny,          [](int) { SendCommandLine(kEscape, false); FocusGadget(kTerminalCanvas); }},
    {kFirstControlButton,     kLastControlButton,      kAny,          ControlClicked},
    {kClsButton,              kClsButton,              kAny,          [](int) { ClearTerminal(kTerminalCanvas); FocusGadget(kTerminalCanvas); }},
    {kRunButton,              kRunButton,              kAny,          [](int) { SendCommandLine("RUN", true); FocusGadget(kTerminalCanvas); }},
    {kHistoryPreviousButton,  kHistoryPreviousButton,  kAny,          [](int) { HistoryPrevious(); }},
    {kHistoryNextButton,      kHistoryNextButton,      kAny,          [](int) { HistoryNext(); }},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeFocus,        TerminalFocused},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeLostFocus,    TerminalLeft},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeInput,        [](int) { HandleTerminalInput(); }},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeKeyDown,      [](int) { HandleTerminalKey(); }},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeLeftClick,    [](int) { if (mouseMode) SendMouseReport(); }},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeMouseMove,    TerminalPointerMoved},
    {kTerminalCanvas,         kTerminalCanvas,         kTypeLeftButtonUp, [](int) { if (!mouseMode) FinishSelection(); }},
};
// clang-format on

}  // namespace

void DispatchGadget(int64_t gadget, int64_t type) {
    TakeRoute(gadgetRoutes, gadget, type);
}
