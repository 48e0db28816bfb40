#include "filemanager/FileManagerWindow.h"

#include <QDir>

#include "base/DocumentsFolder.h"
#include "base/Numbers.h"
#include "filemanager/BatchQueue.h"
#include "filemanager/DeviceListing.h"
#include "filemanager/DevicePane.h"
#include "filemanager/FileManagerSettings.h"
#include "filemanager/PcPane.h"
#include "terminal/screen/TerminalMode.h"
#include "ui/events/EventQueue.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/gadgets/ExplorerListGadget.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/gadgets/ListGadget.h"
#include "ui/gadgets/PathBoxGadget.h"
#include "ui/gadgets/SplitterGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/Windows.h"

namespace {

struct Place {
    int x, y, width, height;
};

struct ButtonRow {
    int gadget;
    int container;  // kNone in the window itself
    Place place;    // fitted to the window afterwards where Layout names the gadget
    const char* text;
    const char* tooltip;
    void (*handler)();
};

// Both tips of the PC's "Del" are given to it, and the later one stays.
// clang-format off
const ButtonRow buttonRows[] = {
    {kCopyToDeviceButton,    kPcToolbar,     {293, 2, 50, 25}, ">>>",
     "Copy selected files to Maximite", CopyToDevice},
    {kPcDeleteButton,        kPcToolbar,     {5, 2, 50, 25},   "Del",
     "Delete selected files on Maximite", DeleteOnPc},
    {kPcNewFolderButton,     kPcToolbar,     {60, 2, 90, 25},  "New folder",
     "Create new folder on PC", NewPcFolder},
    {kEditFileButton,        kPcToolbar,     {155, 2, 50, 25}, "Edit",
     "Edit selected file", EditSelectedFile},
    {kCopyToPcButton,        kDeviceToolbar, {2, 2, 50, 25},   "<<<",
     "Copy selected files to PC", CopyToPc},
    {kDeviceDeleteButton,    kDeviceToolbar, {55, 2, 50, 25},  "Del",
     "", DeleteOnDevice},
    {kDeviceNewFolderButton, kDeviceToolbar, {105, 2, 90, 25}, "New folder",
     "Create new folder on Maximite", NewDeviceFolder},
    {kDeviceRefreshButton,   kDeviceToolbar, {200, 2, 60, 25}, "Refresh",
     "Refresh Maximite file list", RefreshDeviceList},
    {kFlashViewButton,       kDeviceToolbar, {360, 2, 60, 25}, "Memory",
     "switch from SDcard to flash memory", ToggleFlashView},
    {kAbortTransferButton,   kNone,          {350, 7, 50, 25}, "Abort",
     "Abort current transfer", AbortTransfers},
};
// clang-format on

// Names for assistive programs, where neither text nor tip is one.
struct NameRow {
    int gadget;
    const char* name;
};

const NameRow nameRows[] = {
    {kPcToolbar, "PC toolbar"},
    {kDeviceToolbar, "Device toolbar"},
    {kPcDeleteButton, "Delete selected files on PC"},
    {kDeviceDeleteButton, "Delete selected files on device"},
    {kPcPathEntry, "PC folder"},
    {kPcList, "Files on the PC"},
    {kDeviceList, "Files on the device"},
    {kPaneSplitter, "Panes"},
};

constexpr Place kPathBoxPlace = {5, 45, 400, 30};
constexpr Place kFamilyPlace = {75, 30, 400, 30};
constexpr int kMargin = 5;
constexpr int kPaneTop = 80;
constexpr int kPcToolbarHeight = 40;
constexpr int kDeviceToolbarHeight = 70;

void CreateButtonsIn(int container) {
    for (const ButtonRow& row : buttonRows) {
        if (row.container != container) continue;
        const Place& place = row.place;
        ButtonGadget(row.gadget, place.x, place.y, place.width, place.height, row.text);
        SetGadgetTooltip(row.gadget, row.tooltip);
        BindGadgetHandler(row.gadget, row.handler);
    }
}

void CreatePcToolbar(int width) {
    ContainerGadget(kPcToolbar, kMargin, kMargin, width / 2 - kMargin, kPcToolbarHeight);
    CreateButtonsIn(kPcToolbar);
    CloseGadgetList();
    PathBoxGadget(kPcPathEntry, kPathBoxPlace.x, kPathBoxPlace.y, kPathBoxPlace.width,
                  kPathBoxPlace.height, fileManagerSettings.pcFolder);
}

void CreateDeviceToolbar(int width) {
    ContainerGadget(kDeviceToolbar, width / 2, kMargin, width / 2 - kMargin, kDeviceToolbarHeight);
    CreateButtonsIn(kDeviceToolbar);
    TextGadget(kFamilyNameText, kFamilyPlace.x, kFamilyPlace.y, kFamilyPlace.width,
               kFamilyPlace.height, ShownFamily().Fname);
    CloseGadgetList();
}

void CreatePanes(int width, int height) {
    ExplorerListGadget(kPcList, 0, 0, width / 2, height, fileManagerSettings.pcFolder);
    ListGadget(kDeviceList, 0, 0, width / 2, height);
    SplitterGadget(kPaneSplitter, kMargin, kPaneTop, width - 2 * kMargin,
                   height - kPaneTop - 2 * kMargin, kPcList, kDeviceList);
}

void CreateGadgets() {
    const FileManagerSettings& place = fileManagerSettings;
    CreatePcToolbar(place.width);
    CreateDeviceToolbar(place.width);
    CreateButtonsIn(kNone);
    CreatePanes(place.width, place.height);
    CloseGadgetList();
    for (const NameRow& row : nameRows) SetGadgetName(row.gadget, row.name);
}

void ShowPcFolder() {
    const QString& stored = fileManagerSettings.pcFolder;
    if (stored.isEmpty() || !QDir(stored).isReadable()) SetPcFolder(DocumentsFolder());
    SetGadgetText(kPcPathEntry, fileManagerSettings.pcFolder);
    SetGadgetText(kPcList, fileManagerSettings.pcFolder);
}

void RestoreDivision() {
    for (int column = 0; column < kPcListColumns; ++column) {
        SetGadgetColumnWidth(kPcList, column, fileManagerSettings.columns[column]);
    }
    SetGadgetState(kPaneSplitter, fileManagerSettings.splitter);
}

// The toolbars meet where the panes do, with room for "Abort" between them.
void Layout() {
    const int width = fileManagerSettings.width, height = fileManagerSettings.height;
    const int left = fileManagerSettings.splitter - 20;
    const int right = width - left - 60;
    ResizeGadget(kPaneSplitter, kMargin, kPaneTop, width - 10, height - 90);
    ResizeGadget(kPcToolbar, kMargin, kMargin, left, kPcToolbarHeight);
    ResizeGadget(kDeviceToolbar, left + 60, kMargin, right, kDeviceToolbarHeight);
    ResizeGadget(kCopyToDeviceButton, left - 55, 2, 50, 25);
    ResizeGadget(kFlashViewButton, right - 55, 2, 50, 25);
    ResizeGadget(kAbortTransferButton, left + 5, 7, 50, 25);
}

void StoreSize(int x, int y) {
    SetFileManagerPlace(x, y, WindowWidth(kFileManagerWindow, WindowMeasure::kInner),
                        WindowHeight(kFileManagerWindow, WindowMeasure::kInner));
    SetFileManagerSplitter(GadgetState(kPaneSplitter));
}

void StorePlace() {
    StoreSize(WindowX(kFileManagerWindow, WindowMeasure::kFrame),
              WindowY(kFileManagerWindow, WindowMeasure::kFrame));
    for (int column = 0; column < kPcListColumns; ++column) {
        SetPcColumnWidth(column, GadgetColumnWidth(kPcList, column));
    }
    SetPcFolder(GadgetText(kPcList));
}

}  // namespace

void OpenFileManager() {
    const FileManagerSettings& place = fileManagerSettings;
    if (!OpenNumberedWindow(kFileManagerWindow, place.x, place.y, place.width, place.height,
                            "Kewlink File Commander", kStandardWindowFlags)) {
        return;
    }
    CreateGadgets();
    ShowPcFolder();
    RestoreDivision();
    Layout();
    FocusGadget(kDeviceList);
    RefreshDeviceList();
}

void CloseFileManager() {
    if (!WindowIsOpen(kFileManagerWindow)) return;
    StorePlace();
    CloseNumberedWindow(kFileManagerWindow);
    ShowTerminalMode(kModeTerminal);
}

void ResizeFileManager() {
    if (!WindowIsOpen(kFileManagerWindow)) return;
    StoreSize(fileManagerSettings.x, fileManagerSettings.y);
    Layout();
}
