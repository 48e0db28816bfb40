// Puts every record of the program back behind each test, so that the tests of a program
// can run in one process and in any order. One file of each folder's tests names the
// highest floor that they reach:
//
//   const bool startState = KeepStartState(PutBackLink);
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>

#include "base/AppPaths.h"
#include "base/Choices.h"
#include "base/LineEnding.h"
#include "filemanager/BatchQueue.h"
#include "filemanager/DeviceListing.h"
#include "filemanager/FileManagerSettings.h"
#include "filemanager/PcPane.h"
#include "help/HelpSettings.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "shell/CommandHistory.h"
#include "shell/Dispatch.h"
#include "shell/Macros.h"
#include "shell/Presets.h"
#include "shell/ShellSettings.h"
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/LineList.h"
#include "terminal/screen/MonitorViews.h"
#include "terminal/screen/Selection.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/VtFinals.h"
#include "terminal/screen/VtParser.h"
#include "terminal/screen/WindowLayout.h"
#include "tests/support/VirtualClock.h"
#include "ui/drawing/Drawing.h"
#include "ui/drawing/Fonts.h"
#include "ui/events/CurrentEventInternal.h"
#include "ui/events/EventQueue.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Clipboard.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/MenuItem.h"
#include "ui/windows/Windows.h"
#include "upload/FlashSlotUpload.h"
#include "upload/UploadOptions.h"
#include "xmodem/TransferWorkers.h"
#include "xmodem/XmodemSeams.h"

// A record's owner alone writes it; a test may put it back.
template <typename... Records>
void PutBack(const Records&... records) {
    ((const_cast<Records&>(records) = Records()), ...);
}

// Has the procedure run behind each test. The path of the program and the home folder are
// put back as well. True.
inline bool KeepStartState(void (*putBack)()) {
    struct Listener : testing::EmptyTestEventListener {
        explicit Listener(void (*afterTest)()) : procedure(afterTest) {}
        void OnTestEnd(const testing::TestInfo&) override {
            const VirtualClock clock;  // no pause of the program takes time here
            procedure();
            PutBack(appPaths);
            qputenv("HOME", home);
        }
        void (*const procedure)();
        const QByteArray home = qgetenv("HOME");
    };
    testing::UnitTest::GetInstance()->listeners().Append(new Listener(putBack));
    return true;
}

inline void PutBackInterface() {
    AnswerDialogs(nullptr);
    RequestLeave(false);
    for (int i = 0; i < 3; ++i) StopDrawing();
    CloseNumberedWindow(-1);
    DropMenus();
    DropAllHandlers();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    DropAllEvents();
    SetClipboardText("");
}

inline void PutBackScreen() {
    PrintAllHandedLines();
    FinishSelection();
    PutBackInterface();
    TerminalFeed("\x1b[0m");  // ends a sequence that was cut
    TakeReplyText();
    do TerminalHexDump("", 1);
    while (terminalScreen.cursorX < 72);  // behind the sixteenth byte of a row
    const TerminalMetrics& metrics = terminalMetrics;
    for (int font : {metrics.normalFont, metrics.boldFont, metrics.thirdFont})
        FreeNumberedFont(font);
    PutBack(terminalMetrics, terminalSettings, terminalScreen, mainWindowPlace, capture);
    SetTerminalMode(kModeTerminal);
    SetMouseMode(0);
    ResetLines(0);
    SetLineEnding("CRLF");
}

inline void PutBackLink() {
    DisconnectDevice();
    PutBackScreen();
    FreeLinkBuffers();
    SetDeviceOnTcpip(false);
    SetPollingSuspended(false);
    SetQueueBusy(false);
    SetQuietTerminal(false);
    PutBack(linkSettings);
}

inline void PutBackInput() {
    PutBackLink();
    PutBack(inputSettings);
}

inline void PutBackXmodem() {
    StopTransferWorkers();
    SetServeBeforeWait(nullptr);
    PutBackLink();
}

inline void PutBackUpload() {
    SetAfterFlashUpload(nullptr);
    FlashSlotUpload("/no/such/file", -1);  // forgets what was read before
    PutBackLink();
    PutBack(uploadOptions, uploadSettings, uploadSource, deviceFamilies);
}

inline void PutBackHelp() {
    PutBackInterface();
    PutBack(helpSettings);
}

inline void PutBackFileManager() {
    StopTransferWorkers();
    BatchSend(kQueueAbort);
    BatchReceive(kQueueAbort);
    InterfaceEvent chosen;
    chosen.type = kTypePathChosen;
    MakeEventCurrent(&chosen);
    PathBoxChanged();  // takes an echo that is awaited
    MakeEventCurrent(nullptr);
    PutBackUpload();
    PutBack(deviceListing, fileManagerSettings);
}

inline void PutBackShell() {
    PutBackFileManager();
    PutBackHelp();
    PutBack(inputSettings, shellSettings, choices, presetList, macroList);
    SetHistory({});
    PutBack(exitRequested);
}
