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
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/ColourScheme.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/TerminalText.h"
#include "ui/events/BoundHandlers.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Clipboard.h"
#include "ui/windows/MenuItem.h"
#include "upload/SpecRebuild.h"
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
    SetLineEnding(kLineEndings[item - kItemLineEndingCrLf].name);
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
    {kItemAllowResize,         kItemAllowResize,         kAny, ToggleAllowResize},
    {kItemTerminalFont,        kItemTerminalFont,        kAny, [](int) { AskTerminalFont(); }},
    {kItemDarkBackground,      kItemDarkBackground,      kAny, [](int) { SwitchDarkBackground(); }},
    {kItemWordWrap,            kItemWordWrap,            kAny, ToggleWordWrap},
    {kItemLineEndingCrLf,      kItemLineEndingLf,        kAny, ChooseLineEnding},
    {kItemAutosaveCode,        kItemAutosaveCode,        kAny, [](int) { UploadPastedText(ClipboardText()); }},
    {kItemPasteText,           kItemPasteText,           kAny, [](int) { PasteClipboard(0); }},
    {kItemPasteSlowly,         kItemPasteSlowly,         kAny, [](int) { PasteClipboard(linkSettings.lineDelay); }},
    {kItemCopyAll,             kItemCopyAll,             kAny, [](int) { SetClipboardText(GetTerminalText(TextPart::kAll)); }},
    {kItemCopyVisible,         kItemCopyVisible,         kAny, [](int) { SetClipboardText(GetTerminalText(TextPart::kVisible)); }},
    {kItemSaveAll,             kItemSaveAll,             kAny, [](int) { SaveTerminalText(TextPart::kAll); }},
    {kItemSaveVisible,         kItemSaveVisible,         kAny, [](int) { SaveTerminalText(TextPart::kVisible); }},
    {kItemSetTime,             kItemSetRtc,              kAny, SendActionCommand},
    {kItemClearScreen,         kItemClearScreen,         kAny, ClearScreen},
    {kItemNew,                 kItemListAll,             kAny, SendActionCommand},
    {kItemStartCapture,        kItemStartCapture,        kAny, [](int) { StartCapture(); FocusGadget(kTerminalCanvas); }},
    {kItemEndCapture,          kItemEndCapture,          kAny, [](int) { StopCapture(); SaveTerminalText(TextPart::kCapture); }},
    {kItemSendListing,         kItemSendListing,         kAny, [](int) { RequestListing(); }},
    {kItemOptionList,          kItemRun,                 kAny, SendActionCommand},
    {kFirstViewItem,           kLastViewItem,            kAny, ToggleToolbarRow},
    {kFirstModeItem,           kLastModeRoute,           kAny, ChooseMode},
    {kItemHelp,                kItemHelp,                kAny, [](int) { ShowHelpViewer(); }},
    {kShortcutLineEnding,      kShortcutLineEnding,      kAny, [](int) { SendText(lineEnding.bytes); }},
    {kShortcutAddressReturn,   kShortcutAddressReturn,   kAny, AddressReturn},
    {kShortcutCommandReturn,   kShortcutCommandReturn,   kAny, [](int) { SubmitCommandBar(true); }},
    {kShortcutHistoryPrevious, kShortcutHistoryPrevious, kAny, [](int) { HistoryPrevious(); }},
    {kShortcutHistoryNext,     kShortcutHistoryNext,     kAny, [](int) { HistoryNext(); }},
    {kShortcutCtrlC,           kShortcutCtrlC,           kAny, [](int) { SendIfTerminalFocused(3); }},
    {kShortcutCtrlZ,           kShortcutCtrlZ,           kAny, [](int) { SendIfTerminalFocused(26); }},
    {kShortcutF10,             kShortcutF10,             kAny, [](int) { SendText(FunctionKeyCode(10, false)); }},
    {kShortcutShiftF10,        kShortcutShiftF10,        kAny, [](int) { SendText(FunctionKeyCode(10, true)); }},
    {kShortcutAltC,            kShortcutAltC,            kAny, AltC},
};
// clang-format on

}  // namespace

void DispatchMenu(int64_t item) {
    TakeRoute(menuRoutes, item);
}
