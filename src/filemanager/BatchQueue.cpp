#include "filemanager/BatchQueue.h"

#include <QFileInfo>

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/SerialPort.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/gadgets/Gadgets.h"
#include "upload/SourceFile.h"
#include "upload/UploadOptions.h"
#include "upload/UploadProgram.h"
#include "xmodem/TransferWorkers.h"

const QString kQueueNext = "$$$next$$$";
const QString kQueueAbort = "$$$abort$$$";

namespace {

constexpr int64_t kStepPause = 2000;       // milliseconds
constexpr int64_t kLargeFilePause = 1000;  // more, above kSmallFile
constexpr int64_t kSmallFile = 4000;       // bytes

// Behind its last name a queue keeps its text and points one past the end.
struct Queue {
    QString names;  // each ended by "\n"; empty when idle
    int index = 0;  // of the current name, counted from 1; 0 when idle
};

Queue sendQueue;
Queue receiveQueue;
QString receiveFolder;  // where the PC's list stood last

// True when the command is a list of its own.
bool TakeCommand(Queue& queue, const QString& command) {
    if (command == kQueueNext) {
        ++queue.index;
        return false;
    }
    if (command == kQueueAbort) {
        queue = Queue();
        return false;
    }
    queue.names = command.endsWith('\n') ? command : command + '\n';
    queue.index = 1;
    return true;
}

QString CurrentName(const Queue& queue) {
    return FieldOf(queue.names, queue.index, '\n');
}

// A single dropped file goes as the setting says, a list always by XMODEM.
bool ListGoesByXmodem() {
    return sendQueue.names.count('\n') != 1 || uploadSettings.useXmodemForDrop != 0;
}

void ShowPrompt() {
    TerminalPrintLine(SendAndWait("\r", 0));
}

// The pause lets the worker come under way before the queue talks to the device again.
void SendCurrent(bool useXmodem) {
    const QString path = CurrentName(sendQueue);
    if (path.isEmpty()) return TerminalPrintLine("Finished");
    ShowPrompt();
    TerminalPrintLine("Processing file: " + path);
    const int64_t size = QFileInfo(path).size();
    SendFile(path, useXmodem);
    SleepMs(kStepPause);
    if (size > kSmallFile) SleepMs(kLargeFilePause);
}

// The folder while the window is closed is the one that it showed last. Of a name with
// slashes in it only the last part is used on the PC: it is the device's word and must
// not lead out of the folder.
void ReceiveCurrent() {
    const QString name = CurrentName(receiveQueue);
    if (name.isEmpty()) {
        TerminalPrintLine("Finished");
        SetQuietTerminal(false);
        return;
    }
    TerminalPrintLine("Processing file: " + name);
    SleepMs(kStepPause);
    StartReceiveWorker(name, receiveFolder + NamePart(name));
}

// A file without an extension is no text.
bool GoesAsProgram(const QString& extension, bool useXmodem) {
    return !useXmodem && !extension.isEmpty() && uploadSettings.textTypes.contains(extension);
}

}  // namespace

// It clears quietTerminal at once, while a worker may still be under way; BatchReceive
// leaves it set. Required.
void BatchSend(const QString& command) {
    SetPasteSource(false);
    SetQueueBusy(true);
    bool useXmodem = command == kQueueNext;
    if (TakeCommand(sendQueue, command)) useXmodem = ListGoesByXmodem();
    if (useXmodem) SetQuietTerminal(true);
    if (!sendQueue.names.isEmpty()) SendCurrent(useXmodem);
    ShowPrompt();
    SetQuietTerminal(false);
    SetQueueBusy(false);
}

void BatchReceive(const QString& command) {
    if (GadgetExists(kPcList)) receiveFolder = GadgetText(kPcList);
    SetPasteSource(false);
    SetQueueBusy(true);
    TakeCommand(receiveQueue, command);
    SetQuietTerminal(true);
    if (!receiveQueue.names.isEmpty()) ReceiveCurrent();
    ShowPrompt();
    SetQueueBusy(false);
}

void SendFile(const QString& path, bool useXmodem) {
    const QString extension = ExtensionPart(path).toLower();
    if (extension == "uf2") {
        TerminalPrintLine("Firmware update");
        return SerialTouch1200();
    }
    if (GoesAsProgram(extension, useXmodem)) {
        SetCurrentFile(path);
        SetUploadText(ReadSourceFile(path));
        return UploadProgram();
    }
    if (ConnectDevice() == 0) return;
    StartSendWorker(path, NamePart(path));
    // In this order, so the worker is left on a closed link and fails by its own limits.
    if (uploadOptions.disconnectAfter) DisconnectDevice();
}

void AbortTransfers() {
    BatchSend(kQueueAbort);
    StopSendWorker();
    BatchReceive(kQueueAbort);
    StopReceiveWorker();
}
