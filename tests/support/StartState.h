// Puts every record of the program back behind each test, so that the tests of a program
// can run in one process and in any order. One file of each folder's tests names the
// highest floor that they reach:
//
//   const bool startState = KeepStartState(PutBackLink);
#pragma once

#include "base/Choices.h"
#include "base/LineEnding.h"
#include "base/Numbers.h"
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
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/VtFinals.h"
#include "terminal/screen/VtParser.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/drawing/Fonts.h"
#include "ui/events/CurrentEventInternal.h"
#include "ui/events/EventQueue.h"
#include "ui/gadgets/Gadgets.h"
#include "upload/DeviceFamily.h"
#include "upload/FlashSlotUpload.h"
#include "upload/UploadOptions.h"
#include "xmodem/TransferWorkers.h"
#include "xmodem/XmodemSeams.h"

// Has the procedure run behind each test. The path of the program and the home folder are
// put back as well. True.
bool KeepStartState(void (*putBack)());

// A record's owner alone writes it; a test may put it back.
template <typename Record>
void PutBack(const Record& record) {
    const_cast<Record&>(record) = Record();
}

void PutBackInterface();

inline void PutBackScreen() {
    PrintAllHandedLines();
    FinishSelection();
    PutBackInterface();
    TerminalFeed("\x1b[0m");  // ends a sequence that was cut
    TakeReplyText();
    do TerminalHexDump("", 1);
    while (terminalScreen.cursorX < 72);  // behind the sixteenth byte of a row
    for (int font :
         {terminalMetrics.normalFont, terminalMetrics.boldFont, terminalMetrics.thirdFont})
        FreeNumberedFont(font);
    PutBack(terminalMetrics);
    PutBack(terminalSettings);
    PutBack(terminalScreen);
    PutBack(mainWindowPlace);
    PutBack(capture);
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
    PutBack(uploadOptions);
    PutBack(uploadSettings);
    PutBack(uploadSource);
    PutBack(deviceFamilies);
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
    PutBack(deviceListing);
    PutBack(fileManagerSettings);
}

inline void PutBackShell() {
    PutBackFileManager();
    PutBackHelp();
    PutBack(inputSettings);
    PutBack(shellSettings);
    PutBack(choices);
    PutBack(presetList);
    PutBack(macroList);
    SetHistory({});
    PutBack(exitRequested);
}
