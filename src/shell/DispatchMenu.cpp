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

void TerminalFont(int) {
    AskTerminalFont();
}

void DarkBackground(int) {
    SwitchDarkBackground();
}

void ToggleWordWrap(int item) {
    SetWordWrap(!terminalSettings.wordWrap);
    SetMenuItemTick(item, terminalSettings.wordWrap != 0);
}

void ChooseLineEnding(int item) {
    SetLineEnding(item == kItemLineEndingCr ? "CR" : item == kItemLineEndingLf ? "LF" : "CRLF");
    TickOneOf(kItemLineEndingCrLf, kItemLineEndingLf, item);
}

void AutosaveCode(int) {
    UploadPastedText(ClipboardText());
}

void PasteText(int) {
    PasteClipboard(0);
}

void PasteSlowly(int) {
    PasteClipboard(linkSettings.lineDelay);
}

void CopyAll(int) {
    SetClipboardText(GetTerminalText(kTextAll));
}

void CopyVisible(int) {
    SetClipboardText(GetTerminalText(kTextVisible));
}

void SaveAll(int) {
    SaveTerminalText(kTextAll);
}

void SaveVisible(int) {
    SaveTerminalText(kTextVisible);
}

void ClearScreen(int) {
    ClearTerminal(kTerminalCanvas);
    TerminalRepaint();
    FocusGadget(kTerminalCanvas);
}

void BeginCapture(int) {
    StartCapture();
    FocusGadget(kTerminalCanvas);
}

void EndCapture(int) {
    StopCapture();
    SaveTerminalText(kTextCapture);
}

void SendListing(int) {
    RequestListing();
}

void Help(int) {
    ShowHelpViewer();
}

void SendLineEnding(int) {
    SendText(lineEnding.bytes);
}

void AddressReturn(int) {
    QString address = linkSettings.tcpAddress;
    SetTcpEndpoint(address.remove('\r').remove('\n'), linkSettings.tcpPort);
    BuildDeviceSpec();
}

void CommandReturn(int) {
    SubmitCommandBar(true);
}

void Previous(int) {
    HistoryPrevious();
}

void Next(int) {
    HistoryNext();
}

void SendIfTerminalFocused(int byte) {
    if (FocusedGadget() == kTerminalCanvas) SendCommandLine(ByteText(byte), false);
}

void CtrlC(int) {
    SendIfTerminalFocused(3);
}

void CtrlZ(int) {
    SendIfTerminalFocused(26);
}

void F10(int) {
    SendText("\x1b[21~");
}

void ShiftF10(int) {
    SendText("\x1b[34~");
}

// The text that this shortcut copies is one that nothing fills: it empties the clipboard.
void AltC(int) {
    if (FocusedGadget() != kCommandEntry) SetClipboardText(QString());
}

struct MenuRow {
    int first, last;
    void (*procedure)(int item);
};

// Items 28, 29 and 51 run from the layer's own dispatch and have no row here.
// clang-format off
const MenuRow menuRows[] = {
    {kItemAllowResize,         kItemAllowResize,         ToggleAllowResize},
    {kItemTerminalFont,        kItemTerminalFont,        TerminalFont},
    {kItemDarkBackground,      kItemDarkBackground,      DarkBackground},
    {kItemWordWrap,            kItemWordWrap,            ToggleWordWrap},
    {kItemLineEndingCrLf,      kItemLineEndingLf,        ChooseLineEnding},
    {kItemAutosaveCode,        kItemAutosaveCode,        AutosaveCode},
    {kItemPasteText,           kItemPasteText,           PasteText},
    {kItemPasteSlowly,         kItemPasteSlowly,         PasteSlowly},
    {kItemCopyAll,             kItemCopyAll,             CopyAll},
    {kItemCopyVisible,         kItemCopyVisible,         CopyVisible},
    {kItemSaveAll,             kItemSaveAll,             SaveAll},
    {kItemSaveVisible,         kItemSaveVisible,         SaveVisible},
    {kItemSetTime,             kItemSetRtc,              SendActionCommand},
    {kItemClearScreen,         kItemClearScreen,         ClearScreen},
    {kItemNew,                 kItemListAll,             SendActionCommand},
    {kItemStartCapture,        kItemStartCapture,        BeginCapture},
    {kItemEndCapture,          kItemEndCapture,          EndCapture},
    {kItemSendListing,         kItemSendListing,         SendListing},
    {kItemOptionList,          kItemRun,                 SendActionCommand},
    {kFirstViewItem,           kLastViewItem,            ToggleToolbarRow},
    {kFirstModeItem,           kLastModeRoute,           ChooseMode},
    {kItemHelp,                kItemHelp,                Help},
    {kShortcutLineEnding,      kShortcutLineEnding,      SendLineEnding},
    {kShortcutAddressReturn,   kShortcutAddressReturn,   AddressReturn},
    {kShortcutCommandReturn,   kShortcutCommandReturn,   CommandReturn},
    {kShortcutHistoryPrevious, kShortcutHistoryPrevious, Previous},
    {kShortcutHistoryNext,     kShortcutHistoryNext,     Next},
    {kShortcutCtrlC,           kShortcutCtrlC,           CtrlC},
    {kShortcutCtrlZ,           kShortcutCtrlZ,           CtrlZ},
    {kShortcutF10,             kShortcutF10,             F10},
    {kShortcutShiftF10,        kShortcutShiftF10,        ShiftF10},
    {kShortcutAltC,            kShortcutAltC,            AltC},
};
// clang-format on

}  // namespace

void DispatchMenu(int64_t item) {
    for (const MenuRow& row : menuRows) {
        if (item >= row.first && item <= row.last) return row.procedure(static_cast<int>(item));
    }
}
