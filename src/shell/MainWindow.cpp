#include "shell/MainWindow.h"

#include <QString>
#include <QStringList>
#include <algorithm>

#include "base/Numbers.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/gadgets/CanvasGadget.h"
#include "ui/gadgets/CheckBoxGadget.h"
#include "ui/gadgets/ComboBoxGadget.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/gadgets/ScrollBarGadget.h"
#include "ui/gadgets/TextEntryGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/DragDrop.h"
#include "ui/windows/Windows.h"

namespace {

constexpr int kGadgetTop = 1;
constexpr int kGadgetHeight = 20;
constexpr int kLargestStoredSize = 10000;  // of the canvas, in pixels
constexpr int kScrollBarPage = 40;         // page length, in lines

enum class Kind {
    kButton,
    kButtonDisabled,
    kButtonHidden,
    kEntry,
    kCombo,
    kCheck,
    kText,
    kTextHidden
};

struct GadgetRow {
    int row;  // toolbar row, 1 to 6
    int gadget;
    Kind kind;
    int x;
    int width;
    const char* text;
    const char* tooltip;
    int count = 1;  // so many gadgets of consecutive numbers ...
    int pitch = 0;  // ... each this far right of the one before
};

// Gadgets 41 and 42 overlap by design: one of them is visible at a time. Two tooltips
// carry misspellings that users know; the one of 47 says what its label does not.
// clang-format off
const GadgetRow gadgetRows[] = {
    {1, kFirstPresetButton,     Kind::kButtonDisabled, 0,   65,  "Device",        "", 12, 66},
    {2, kFamilyCombo,           Kind::kCombo,          5,   85,  "",              "Connected device"},
    {2, kPortCombo,             Kind::kCombo,          95,  65,  "",              "Serial port"},
    {2, kSpeedCombo,            Kind::kCombo,          165, 70,  "",              "Serial baud rate"},
    {2, kAddressEntry,          Kind::kEntry,          175, 275, "",              "IPaddress : Port"},
    {2, kOptionsCombo,          Kind::kCombo,          455, 70,  "",              "Additional options"},
    {2, kMouseButton,           Kind::kButton,         600, 50,  "Mouse",         ""},
    {2, kSavePresetButton,      Kind::kButton,         700, 100, "Save settings", "Save setup as preset"},
    {3, kNicknameEntry,         Kind::kEntry,          5,   80,  "",              "Device nickname"},
    {3, kSpecEntry,             Kind::kEntry,          95,  500, "",              "Device specifications"},
    {3, kConnectButton,         Kind::kButton,         600, 95,  "Connect",       "Connnect to device"},
    {3, kDisconnectButton,      Kind::kButtonHidden,   600, 95,  "Disconnect",    "Disconnect device"},
    {3, kOverrideCheck,         Kind::kCheck,          700, 100, "Override",      "These setting override any in file"},
    {4, kFirstMacroButton,      Kind::kButtonDisabled, 5,   57,  "Macro",         "", 10, 58},
    {4, kEscButton,             Kind::kButton,         610, 30,  "Esc",           ""},
    {4, kCtrlCButton,           Kind::kButton,         645, 30,  "^C",            ""},
    {4, kCtrlZButton,           Kind::kButton,         680, 30,  "^Z",            ""},
    {4, kClsButton,             Kind::kButton,         715, 30,  "Cls",           "Clear local screen"},
    {4, kRunButton,             Kind::kButton,         750, 50,  "Run",           ""},
    {5, kCommandEntry,          Kind::kEntry,          5,   370, "",              "Commands to send to device"},
    {5, kClearCommandButton,    Kind::kButton,         380, 25,  "X",             "Clear command line"},
    {5, kHistoryPreviousButton, Kind::kButton,         410, 25,  "<",             "Cycle through recent commands"},
    {5, kHistoryNextButton,     Kind::kButton,         440, 25,  ">",             "Cycle through recent commands"},
    {5, kSendButton,            Kind::kButton,         470, 50,  "Send",          "Send as is"},
    {5, kSendCrButton,          Kind::kButton,         525, 60,  "Send+CR",       "Send with CR"},
    {5, kSaveMacroButton,       Kind::kButton,         590, 60,  "Save",          "Save commandline as Macro"},
    {6, kTerminalSizeText,      Kind::kText,           5,   250, "",              ""},
    {6, kModeText,              Kind::kText,           420, 100, "Mode",          ""},
    {6, kProgressText,          Kind::kTextHidden,     530, 60,  "",              ""},
};
// clang-format on

// Names for assistive programs, where neither text nor tip is one.
struct NameRow {
    int gadget;
    const char* name;
};

const NameRow nameRows[] = {
    {kTerminalCanvas, "Terminal"},         {kFrameCanvas, "Terminal frame"},
    {kTerminalScrollBar, "Scroll back"},   {kHistoryPreviousButton, "Earlier command"},
    {kHistoryNextButton, "Later command"}, {kCtrlCButton, "Control C"},
    {kCtrlZButton, "Control Z"},           {kTerminalSizeText, "Terminal size"},
    {kProgressText, "Upload progress"},
};

void NameGadgets() {
    for (const NameRow& row : nameRows) SetGadgetName(row.gadget, row.name);
    for (int row = 0; row < kToolbarRows; ++row) {
        SetGadgetName(kFirstToolbarRow + row, "Toolbar row " + QString::number(row + 1));
    }
}

void CreateGadget(const GadgetRow& row, int gadget, int x) {
    switch (row.kind) {
        case Kind::kButton:
        case Kind::kButtonDisabled:
        case Kind::kButtonHidden:
            ButtonGadget(gadget, x, kGadgetTop, row.width, kGadgetHeight, row.text);
            break;
        case Kind::kEntry:
            TextEntryGadget(gadget, x, kGadgetTop, row.width, kGadgetHeight, row.text);
            break;
        case Kind::kCombo:
            ComboBoxGadget(gadget, x, kGadgetTop, row.width, kGadgetHeight);
            break;
        case Kind::kCheck:
            CheckBoxGadget(gadget, x, kGadgetTop, row.width, kGadgetHeight, row.text);
            break;
        case Kind::kText:
        case Kind::kTextHidden:
            TextGadget(gadget, x, kGadgetTop, row.width, kGadgetHeight, row.text);
            break;
    }
    if (row.kind == Kind::kButtonDisabled) DisableGadget(gadget, true);
    if (row.kind == Kind::kButtonHidden || row.kind == Kind::kTextHidden) HideGadget(gadget, true);
}

void CreateRowOf(int toolbarRow) {
    const GadgetPlace at = NextToolbarRow();
    ContainerGadget(kFirstToolbarRow + toolbarRow - 1, at.x, at.y, at.width, at.height);
    for (const GadgetRow& row : gadgetRows) {
        if (row.row != toolbarRow) continue;
        for (int i = 0; i < row.count; ++i) {
            CreateGadget(row, row.gadget + i, row.x + i * row.pitch);
        }
    }
    CloseGadgetList();
}

struct ComboRow {
    int gadget;
    QStringList items;
};

void FillComboBoxes() {
    const ComboRow combos[] = {
        {kSpeedCombo,
         {"1200", "4800", "9600", "19200", "38400", "57600", "115200", "230400", "460800", "576000",
          "921600"}},
        {kFamilyCombo,
         {"maximite", "micromite", "pi-cromite", "cmm2", "picomite", "vgamite", "command"}},
        {kOptionsCombo, {"settime", "setRTC", "norun", "nonew", "discon", "file"}},
    };
    for (const ComboRow& combo : combos) {
        for (const QString& item : combo.items) AddGadgetItem(combo.gadget, item);
    }
}

}  // namespace

void OpenMainWindow() {
    OpenNumberedWindow(kMainWindow, mainWindowPlace.x, mainWindowPlace.y, mainWindowPlace.width,
                       mainWindowPlace.height, "Kewlink Console", kStandardWindowFlags);
    SetGadgetFont(-1, kInterfaceFont);
}

void CreateToolbarRows() {
    BeginToolbarRows();
    for (int row = 1; row <= kToolbarRows; ++row) CreateRowOf(row);
    SetGadgetText(kTerminalSizeText, "Terminal size: " + TerminalSizeText());
}

// The stored size serves the canvases' creation alone; whatever a file says, it is held to
// what an image can be.
void CreateTerminal() {
    SetCanvasSize(std::clamp(terminalSettings.canvasWidth, 1, kLargestStoredSize),
                  std::clamp(terminalSettings.canvasHeight, 1, kLargestStoredSize));
    const GadgetPlace frame = FramePlace();
    CanvasGadget(kFrameCanvas, frame.x, frame.y, frame.width, frame.height,
                 kCanvasFrame + kCanvasContainer);
    const GadgetPlace terminal = TerminalPlace();
    CanvasGadget(kTerminalCanvas, terminal.x, terminal.y, terminal.width, terminal.height,
                 kCanvasKeyboard);
    CloseGadgetList();
    if (GadgetExists(kTerminalCanvas)) SetUpTerminal();
}

void CreateScrollBar() {
    ShowTerminalSize();
    const GadgetPlace at = ScrollBarPlace();
    ScrollBarGadget(kTerminalScrollBar, at.x, at.y, at.width, at.height, 0,
                    terminalScreen.scrollBack, kScrollBarPage, ScrollDirection::kVertical);
}

void EnableDrops() {
    EnableWindowDrop(kMainWindow, DropFormat::kFiles);
    EnableGadgetDrop(kTerminalCanvas, DropFormat::kText);
    EnableGadgetDrop(kTerminalCanvas, DropFormat::kFiles);
}

void DressGadgets() {
    for (const GadgetRow& row : gadgetRows) {
        if (*row.tooltip) SetGadgetTooltip(row.gadget, row.tooltip);
    }
    NameGadgets();
    for (int gadget : {kTerminalCanvas, kCommandEntry, kAddressEntry}) {
        SetGadgetFont(gadget, kTerminalEntryFont);
    }
    FillComboBoxes();
}
