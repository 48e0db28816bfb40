#include "shell/StartUp.h"

#include <QString>
#include <csignal>

#include "base/AppPaths.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "filemanager/DeviceListing.h"
#include "filemanager/FileManagerWindow.h"
#include "help/About.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/Servers.h"
#include "shell/DeviceGadgets.h"
#include "shell/Dispatch.h"
#include "shell/MainMenu.h"
#include "shell/MainWindow.h"
#include "shell/Settings.h"
#include "shell/SingleInstance.h"
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/ColourScheme.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/VtParser.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/InterfaceLayer.h"
#include "ui/events/AddKeyboardShortcut.h"
#include "ui/events/AddWindowTimer.h"
#include "ui/events/BoundHandlers.h"
#include "ui/events/CurrentEvent.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/MenuItem.h"
#include "ui/windows/Windows.h"
#include "upload/FlashSlotUpload.h"
#include "upload/SpecRebuild.h"
#include "upload/UploadOptions.h"
#include "xmodem/TransferWorkers.h"

namespace {

#ifdef KWCC_BUILD_STAMP
constexpr int64_t kBuildStamp = KWCC_BUILD_STAMP;
#else
constexpr int64_t kBuildStamp = 1660286857;
#endif
constexpr int kKeyAltC = 0x08000043;
constexpr int kBlinkPeriod = 400;        // milliseconds
constexpr int kDeferredLoadDelay = 300;  // milliseconds
constexpr int kPauseBeforeClosing = 50;  // milliseconds
constexpr int kFirstInstancePort = 0;    // see SecondInstance
constexpr int kWaitForever = -1;

// All arguments, joined by one blank each. There are no option letters.
QString JoinArguments(int argc, char** argv) {
    QString joined;
    for (int i = 1; i < argc; ++i) {
        if (i > 1) joined += ' ';
        joined += QString::fromLocal8Bit(argv[i]);
    }
    return joined;
}

// True when another instance runs; this one has then handed its command line over. The
// control port is the variable as it stands before any setting is read, which is 0 and
// not the port of the settings file; that is meant.
bool SecondInstance() {
    if (CountOwnProcesses(appPaths.executable) < 2) return false;
    HandOver(uploadSource.currentFile, kFirstInstancePort);
    return true;
}

void BindHandlers() {
    AddKeyboardShortcut(kMainWindow, kKeyAltC, kShortcutAltC);
    BindGadgetHandler(kTerminalCanvas, MouseWheelHandler, kTypeMouseWheel);
    BindGadgetHandler(kTerminalScrollBar, ScrollBarChanged);
    BindMenuHandler(kItemTerminalSize, AskTerminalSize);
    BindMenuHandler(kItemDefaultTerminalSize, RestoreDefaultTerminalSize);
    BindMenuHandler(kItemAbout, ShowAbout);
    SetAfterFlashUpload(RefreshDeviceList);
}

void StartTimers() {
    AddWindowTimer(kMainWindow, kPollTimer, linkSettings.pollingInterval);
    AddWindowTimer(kMainWindow, kBlinkTimer, kBlinkPeriod);
    AddWindowTimer(kMainWindow, kDeferredLoadTimer, kDeferredLoadDelay);
}

void ShowMode() {
    SetGadgetText(kModeText, TerminalModeName(terminalMode));
}

void PrintTitle() {
    TerminalFeed("\x1b[0m");
    TerminalPrintLine("Kewlink Console");
    TerminalPrintLine("Build date: " + FormatDate("%yyyy/%mm/%dd", kBuildStamp));
}

// One event at a time. A turn without an event does nothing, so the wait has no limit:
// whatever could give the loop work, a timer or another thread's post included, ends it.
void MainLoop() {
    while (!exitRequested) {
        const int32_t event = WaitForEvent(kWaitForever);
        if (event != kNoEvent) DispatchEvent(event, EventWindow());
    }
}

}  // namespace

// The order is part of the program: each step uses what the ones before it set.
void BuildWindow() {
    OpenMainWindow();
    CreateMainMenu();
    CreateToolbarRows();
    CreateTerminal();
    CreateScrollBar();
    CreateEditPopup();
    EnableDrops();
    DressGadgets();
    FillPresetAndMacroButtons();
    ShowStoredLink();
    BindHandlers();
    StartTimers();
    SetStartTicks();
    SetSchemeColours();
    TerminalRepaint();
    LayoutMainWindow();
    FillPortList();
    ShowMode();
    ShowStoredDevice();
    BuildDeviceSpec();
    ApplyNamedPreset();
    PrintTitle();
}

void ShutDown() {
    TerminalFeed("\x1b[7mBye\x1b[0m");
    if (WindowIsOpen(kFileManagerWindow)) CloseFileManager();
    SaveSettings();
    DisconnectDevice();
    RemoveWindowTimer(kMainWindow, kBlinkTimer);
    RemoveWindowTimer(kMainWindow, kPollTimer);
    AskTransferWorkersToEnd();
    StopServers();
    StopTransferWorkers();
    SleepMs(kPauseBeforeClosing);
    CloseNumberedWindow(-1);
    FreeLinkBuffers();
}

int RunProgram(int argc, char** argv) {
    // A far end that is gone must show as a failed write, not end the program.
    signal(SIGPIPE, SIG_IGN);
    StartInterfaceLayer(argv);
    ResolveAppPaths();
    SetCurrentFile(JoinArguments(argc, argv));
    if (!SecondInstance()) {
        LoadSettings();
        AllocateLinkBuffers();
        BuildWindow();
        SaveAtSessionEnd(SaveSettings);
        StartServers();
        MainLoop();
        ShutDown();
    }
    EndInterfaceLayer();
    return 0;
}
