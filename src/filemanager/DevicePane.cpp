#include "filemanager/DevicePane.h"

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "filemanager/BatchQueue.h"
#include "filemanager/DeviceListing.h"
#include "filemanager/DeviceRow.h"
#include "link/LinkPrimitives.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/events/CurrentEvent.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Dialogs.h"
#include "upload/FlashSlotUpload.h"

namespace {

// Milliseconds.
constexpr int64_t kAfterCommand = 200;
constexpr int64_t kAfterErase = 800;
constexpr int64_t kAfterNewFolder = 1200;
constexpr int64_t kBeforeRefresh = 1000;

const char kParentFolder[] = "..";

// Sends the command with the name in double quotes, and gives the device time for it.
void SendNamed(const char* command, const QString& name, int64_t wait) {
    SendText(QString(command) + " \"" + name + '"' + lineEnding.bytes);
    SleepMs(wait);
}

// The selected rows of the device's list, from the first on.
QStringList SelectedRows() {
    QStringList rows;
    for (int row = 0; row < GadgetItemCount(kDeviceList); ++row) {
        if (GadgetItemSelected(kDeviceList, row)) rows += GadgetItemText(kDeviceList, row);
    }
    return rows;
}

void FetchFiles() {
    const int fnstart = ShownFamily().fnstart;
    QString names;
    for (const QString& row : SelectedRows()) names += FileNameInRow(row, fnstart) + '\n';
    BatchReceive(names);
}

// Without a column for the name a file is passed over: its row can't be told apart.
void DeleteRow(const QString& row, int fnstart) {
    if (IsFolderRow(row)) {
        const QString name = FolderNameInRow(row);
        if (!name.isEmpty()) SendNamed("rmdir", name, kAfterCommand);
    } else if (fnstart > 1) {
        const QString name = FileNameInRow(row, fnstart);
        if (!name.isEmpty()) SendNamed("kill", name, kAfterCommand);
    }
}

// In flash view the row's number is the slot. Where its own text names another, a line that
// is no row has come among them: nothing may go to the device for it.
bool RowIsOfAnotherSlot(int row) {
    const int slot = SlotNamedInRow(GadgetItemText(kDeviceList, row));
    if (slot == 0 || slot == row) return false;
    TerminalPrintLine(QString("Row %1 shows slot %2: nothing was sent, the list is read anew.")
                          .arg(row)
                          .arg(slot));
    RefreshDeviceList();
    return true;
}

// Main memory, row 0, is not erased. With several rows selected only the first counts.
void EraseSlot(int slot) {
    if (slot <= 0) return;
    SendText("flash erase " + QString::number(slot) + lineEnding.bytes);
    SleepMs(kAfterErase);
}

void DeleteSelectedRows() {
    const int fnstart = ShownFamily().fnstart;
    for (const QString& row : SelectedRows()) {
        if (!LeaveRequested()) DeleteRow(row, fnstart);
    }
}

void ShowErrorReply() {
    const QString reply = SendAndWait("\r", 0);
    if (reply.contains("error : ", Qt::CaseInsensitive)) TerminalPrintLine(reply);
}

void EnterFolder() {
    const QString row = GadgetText(kDeviceList);
    if (!IsFolderRow(row) && row != kParentFolder) return;
    StartDeviceRows(kParentFolder);
    SendNamed("chdir", FolderNameInRow(row), kAfterCommand);
    SendText(ShownFamily().filesCMD + lineEnding.bytes);
    SleepMs(kAfterCommand);
}

}  // namespace

void CopyToPc() {
    const int row = GadgetState(kDeviceList);
    if (row < 0) return;
    if (!deviceListing.flashView) return FetchFiles();
    if (!RowIsOfAnotherSlot(row)) RequestProgram(row);
}

void DeleteOnDevice() {
    const int row = GadgetState(kDeviceList);
    if (row < 0) return;
    if (deviceListing.flashView) {
        if (RowIsOfAnotherSlot(row)) return;
        EraseSlot(row);
    } else {
        DeleteSelectedRows();
    }
    SleepMs(kAfterCommand);
    ShowErrorReply();
    SleepMs(kBeforeRefresh);
    RefreshDeviceList();
}

void NewDeviceFolder() {
    const QString name = AskText("New folder", "Name for new folder?", QString());
    if (name.isEmpty()) return;
    SendNamed("mkdir", name, kAfterNewFolder);
    SendAndWait("\r", 0);
    SleepMs(kBeforeRefresh);
    RefreshDeviceList();
}

void DeviceListClicked() {
    if (EventType() == kTypeLeftDoubleClick) return EnterFolder();
    if (EventType() != kTypeLeftClick || !SlotUploadArmed()) return;
    const int row = GadgetState(kDeviceList);
    if (!RowIsOfAnotherSlot(row)) FlashSlotUpload(QString(), row);
}
