#include "shell/MainMenu.h"

#include <QString>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/MenuItem.h"
#include "upload/UploadOptions.h"

namespace {

struct MenuRow {
    int item;
    const char* title;  // opens a menu of this title when set
    const char* text;
};

// clang-format off
const MenuRow menuRows[] = {
    {kItemTerminalSize,        "Setup",  "Terminal Size"},
    {kItemDefaultTerminalSize, nullptr,  "Default Terminal Size"},
    {kItemAllowResize,         nullptr,  "Allow resize"},
    {kItemTerminalFont,        nullptr,  "Terminal font..."},
    {kItemDarkBackground,      nullptr,  "Dark background"},
    {kItemWordWrap,            nullptr,  "WordWrap"},
    {kItemLineEndingCrLf,      nullptr,  "Line ending = CRLF"},
    {kItemLineEndingCr,        nullptr,  "Line ending = CR"},
    {kItemLineEndingLf,        nullptr,  "Line ending = LF"},
    {kItemAutosaveCode,        "Edit",   "AUTOSAVE code"},
    {kItemPasteText,           nullptr,  "Paste text"},
    {kItemPasteSlowly,         nullptr,  "Paste text slowly"},
    {kItemCopyAll,             nullptr,  "Copy All"},
    {kItemCopyVisible,         nullptr,  "Copy Visible"},
    {kItemSaveAll,             nullptr,  "Save All As..."},
    {kItemSaveVisible,         nullptr,  "Save Visible As..."},
    {kItemSetTime,             "Action", "Set Time"},
    {kItemSetRtc,              nullptr,  "Set RTC"},
    {kItemClearScreen,         nullptr,  "Clear local screen"},
    {kItemNew,                 nullptr,  "New"},
    {kItemListAll,             nullptr,  "List All"},
    {kItemOptionList,          nullptr,  "Option List"},
    {kItemFiles,               nullptr,  "Files"},
    {kItemRun,                 nullptr,  "Run"},
    {kItemStartCapture,        nullptr,  "Start Capture"},
    {kItemEndCapture,          nullptr,  "End Capture"},
    {kItemSendListing,         nullptr,  "Send Listing to Editor"},
    {kFirstViewItem,           "View",   "Presets"},
    {kFirstViewItem + 1,       nullptr,  "Manual entry"},
    {kFirstViewItem + 2,       nullptr,  "Setup options"},
    {kFirstViewItem + 3,       nullptr,  "Macrobuttons"},
    {kFirstViewItem + 4,       nullptr,  "Command entry"},
    {kFirstViewItem + 5,       nullptr,  "Monitor"},
    {kFirstModeItem,           "Mode",   "VT Terminal"},
    {kFirstModeItem + 1,       nullptr,  "External VT helper"},
    {kFirstModeItem + 2,       nullptr,  "Monitor"},
    {kFirstModeItem + 3,       nullptr,  "HEX monitor"},
    {kFirstModeItem + 4,       nullptr,  "File Manager"},
    {kItemAbout,               "Help",   "About"},
    {kItemHelp,                nullptr,  "Help"},
};
// clang-format on

const int popupItems[] = {kItemAutosaveCode, kItemPasteText, kItemPasteSlowly, kItemCopyAll,
                          kItemCopyVisible,  kItemSaveAll,   kItemSaveVisible};

QString TextOfItem(int item) {
    for (const MenuRow& row : menuRows) {
        if (row.item == item) return row.text;
    }
    return QString();
}

void TickViewItems() {
    for (int i = 1; i <= kToolbarRows; ++i) {
        const bool shown = mainWindowPlace.linesToShow.mid(i - 1, 1) == "1";
        SetMenuItemTick(kFirstViewItem + i - 1, shown);
    }
}

void TickLineEnding() {
    SetLineEnding(lineEnding.name);
    for (const LineEndingRow& row : kLineEndings) {
        SetMenuItemTick(row.item, lineEnding.name == row.name);
    }
}

}  // namespace

void CreateMainMenu() {
    CreateMenuBar(kMainMenu, kMainWindow);
    for (const MenuRow& row : menuRows) {
        if (row.title) MenuTitle(row.title);
        MenuItem(row.item, row.text);
    }
}

void CreateEditPopup() {
    CreatePopupMenu(kPopupMenu);
    for (int item : popupItems) MenuItem(item, TextOfItem(item));
}

void SetStartTicks() {
    TickViewItems();
    SetMenuItemTick(kItemDarkBackground, terminalSettings.darkBackground != 0);
    SetMenuItemTick(kItemAllowResize, terminalSettings.allowResize != 0);
    SetMenuItemTick(kFirstModeItem + terminalMode, true);
    TickLineEnding();
    // The tick of word wrap is left off even when the setting is on; it shows from the
    // first toggle on.
    SetGadgetState(kOverrideCheck, uploadSettings.overrideFileSettings != 0);
}
