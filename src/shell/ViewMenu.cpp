#include "shell/ViewMenu.h"

#include <QString>

#include "base/Numbers.h"
#include "filemanager/FileManagerWindow.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/windows/MenuItem.h"

void ToggleToolbarRow(int item) {
    SetMenuItemTick(item, !MenuItemTick(item));
    QString marks;
    for (int row = kFirstViewItem; row <= kLastViewItem; ++row) {
        marks += MenuItemTick(row) ? '1' : '0';
    }
    SetLinesToShow(marks);
    LayoutMainWindow();
}

void ChooseMode(int item) {
    ShowTerminalMode(item - kFirstModeItem);
    if (terminalMode == kModeFileManager) OpenFileManager();
}
