// Menu items and shortcuts of the main window.
#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "base/TextRules.h"
#include "help/HelpViewer.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/SendListing.h"
#include "shell/ActionMenu.h"
#include "shell/CommandHistory.h"
#include "shell/Dispatch.h"
#include "shell/Route.h"
#include "shell/ViewMenu.h"
#include "terminal/input/Paste.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/TerminalText.h"
#include "ui/DragDrop.h"
#include "ui/Gadgets.h"
#include "ui/MenuItem.h"
#include "upload/DeviceSpec.h"
#include "upload/UploadProgram.h"

namespace {

void ToggleAllowResize(int item) {
    SetAllowResize(!terminalSettings.allowResize);
    SetMenuItemTick(item, terminalSettings.allowResize != 0);
}

void ToggleWordWrap(int item) {
    SetWordWrap(!terminalSettings.wordWrap);
    SetMenuItemTick(item, terminalSettings.wordWrap != 0);
}

void ChooseLineEnding(int item) {
    SetLineEnding(item == kItemLineEndingCr ? "CR" : item == kItemLineEndingLf ? "LF" : "CRLF");
    TickOneOf(kItemLineEndingCrLf, kItemLineEndingLf, item);
}

void ClearScreen(int) {
    ClearTerminal(kTerminalCanvas);
    TerminalRepaint();
    FocusGadget(kTerminalCanvas);
}

void AddressReturn(int) {
    QString address = linkSettings.tcpAddress;
    SetTcpEndpoint(address.remove('\r').remove('\n'), linkSettings.tcpPort);
    BuildDeviceSpec();
}

void SendIfTerminalFocused(int byte) {
    if (FocusedGadget() == kTerminalCanvas) SendCommandLine(ByteText(byte), false);
}

// The text that this shortcut copies is one that nothing fills: it empties the clipboard.
void AltC(int) {
    if (FocusedGadget() != kCommandEntry) SetClipboardText(QString());
}

// Items 28, 29 and 51 run from the layer's own dispatch and have no row here.
// clang-format off
const Route menuRoutes[] = {
    {kItemAllowResize,         kItemAllowResize,         kAnyType, ToggleAllowResize},
    {kItemTerminalFont,        kItemTerminalFont,        kAnyType, [](int) { AskTerminalFont(); }},
    {kItemDarkBackground,      kItemDarkBackground,      kAnyType, [](int) { SwitchDarkBackground(); }},
    {kItemWordWrap,            kItemWordWrap,            kAnyType, ToggleWordWrap},
    {kItemLineEndingCrLf,      kItemLineEndingLf,        kAnyType, ChooseLineEnding},
    {kItemAutosaveCode,        kItemAutosaveCode,        kAnyType, [](int) { UploadPastedText(ClipboardText()); }},
    {kItemPasteText,           kItemPasteText,           kAnyType, [](int) { PasteClipboard(0); }},
    {kItemPasteSlowly,         kItemPasteSlowly,         kAnyType, [](int) { PasteClipboard(linkSettings.lineDelay); }},
    {kItemCopyAll,             kItemCopyAll,             kAnyType, [](int) { SetClipboardText(GetTerminalText(kTextAll)); }},
    {kItemCopyVisible,         kItemCopyVisible,         kAnyType, [](int) { SetClipboardText(GetTerminalText(kTextVisible)); }},
    {kItemSaveAll,             kItemSaveAll,             kAnyType, [](int) { SaveTerminalText(kTextAll); }},
    {kItemSaveVisible,         kItemSaveVisible,         kAnyType, [](int) { SaveTerminalText(kTextVisible); }},
    {kItemSetTime,             kItemSetRtc,              kAnyType, SendActionCommand},
    {kItemClearScreen,         kItemClearScreen,         kAnyType, ClearScreen},
    {kItemNew,                 kItemListAll,             kAnyType, SendActionCommand},
    {kItemStartCapture,        kItemStartCapture,        kAnyType, [](int) { StartCapture(); FocusGadget(kTerminalCanvas); }},
    {kItemEndCapture,          kItemEndCapture,          kAnyType, [](int) { StopCapture(); SaveTerminalText(kTextCapture); }},
    {kItemSendListing,         kItemSendListing,         kAnyType, [](int) { RequestListing(); }},
    {kItemOptionList,          kItemRun,                 kAnyType, SendActionCommand},
    {kFirstViewItem,           kLastViewItem,            kAnyType, ToggleToolbarRow},
    {kFirstModeItem,           kLastModeRoute,           kAnyType, ChooseMode},
    {kItemHelp,                kItemHelp,                kAnyType, [](int) { ShowHelpViewer(); }},
    {kShortcutLineEnding,      kShortcutLineEnding,      kAnyType, [](int) { SendText(lineEnding.bytes); }},
    {kShortcutAddressReturn,   kShortcutAddressReturn,   kAnyType, AddressReturn},
    {kShortcutCommandReturn,   kShortcutCommandReturn,   kAnyType, [](int) { SubmitCommandBar(true); }},
    {kShortcutHistoryPrevious, kShortcutHistoryPrevious, kAnyType, [](int) { HistoryPrevious(); }},
    {kShortcutHistoryNext,     kShortcutHistoryNext,     kAnyType, [](int) { HistoryNext(); }},
    {kShortcutCtrlC,           kShortcutCtrlC,           kAnyType, [](int) { SendIfTerminalFocused(3); }},
    {kShortcutCtrlZ,           kShortcutCtrlZ,           kAnyType, [](int) { SendIfTerminalFocused(26); }},
    {kShortcutF10,             kShortcutF10,             kAnyType, [](int) { SendText("\x1b[21~"); }},
    {kShortcutShiftF10,        kShortcutShiftF10,        kAnyType, [](int) { SendText("\x1b[34~"); }},
    {kShortcutAltC,            kShortcutAltC,            kAnyType, AltC},
};
// clang-format on

}  // namespace

void DispatchMenu(int64_t item) {
    TakeRoute(menuRoutes, item);
}
