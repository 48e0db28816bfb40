#include "filemanager/PcPane.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include "base/AppPaths.h"
#include "base/Numbers.h"
#include "filemanager/BatchQueue.h"
#include "filemanager/DeviceListing.h"
#include "filemanager/FileManagerSettings.h"
#include "ui/events/CurrentEvent.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/Notice.h"
#include "upload/FlashSlotUpload.h"
#include "upload/UploadOptions.h"

namespace {

constexpr int kSelectSlotNoticeMs = 4000;

const char kEditorProgram[] = "KWEdit";

// The list entered a folder, and what the path box raises next is only its echo.
bool folderComesFromList = false;

QString WithSeparator(const QString& folder) {
    return folder.isEmpty() || folder.endsWith('/') ? folder : folder + '/';
}

// Reads the folder anew. The rows' numbers hold until here.
void RefreshPcList() {
    SetGadgetText(kPcList, GadgetText(kPcList));
}

// Full paths of the selected files, from the first selected row on. Folders are passed
// over.
QStringList SelectedFiles() {
    QStringList files;
    const QString folder = GadgetText(kPcList);
    for (int row = 0; row < GadgetItemCount(kPcList); ++row) {
        if (!GadgetItemSelected(kPcList, row) || !GadgetItemIsFile(kPcList, row)) continue;
        files += folder + GadgetItemText(kPcList, row);
    }
    return files;
}

// Asked once: the answer is remembered as "need not be asked", whatever it was.
bool MayOverwriteMemory() {
    if (!uploadSettings.warnFlashCopy) return true;
    const bool yes = AskMessage("Warning!",
                                "Copying to flash slot will also overwrite main memory. Do you "
                                "want to continue?",
                                MessageButtons::kYesNo);
    SetWarnFlashCopy(false);
    return yes;
}

// The upload begins with the click on the row that is its target; the notice says so.
void ArmSlotUpload() {
    ShowNotice("Select flash slot or main memory", kSelectSlotNoticeMs);
    const int row = GadgetState(kPcList);
    if (row < 0 || !MayOverwriteMemory()) return;
    FlashSlotUpload(GadgetText(kPcList) + GadgetItemText(kPcList, row), -1);
}

void SendSelectedFiles() {
    QString list;
    for (const QString& path : SelectedFiles()) list += path + '\n';
    RefreshPcList();
    BatchSend(list);
}

}  // namespace

void CopyToDevice() {
    if (deviceListing.flashView) return ArmSlotUpload();
    SendSelectedFiles();
}

void DeleteOnPc() {
    for (const QString& path : SelectedFiles()) QFile::remove(path);
    RefreshPcList();
}

void NewPcFolder() {
    const QString name = AskText("New folder", "Name for new folder?", QString());
    if (!name.isEmpty()) QDir().mkdir(fileManagerSettings.pcFolder + name);
}

void EditSelectedFile() {
    const int row = GadgetState(kPcList);
    if (row < 0 || !GadgetItemIsFile(kPcList, row)) return;
    const QString path = GadgetText(kPcList) + GadgetItemText(kPcList, row);
    QProcess::startDetached(appPaths.programFolder + kEditorProgram, {path});
}

void PcListChanged() {
    if (EventType() != kTypeValueChanged) return;
    folderComesFromList = true;
    SetPcFolder(GadgetText(kPcList));
    SetGadgetText(kPcPathEntry, fileManagerSettings.pcFolder);
}

void PathBoxChanged() {
    if (EventType() != kTypePathChanged && EventType() != kTypePathChosen) return;
    if (folderComesFromList) {
        folderComesFromList = false;
        return;
    }
    SetPcFolder(WithSeparator(GadgetText(kPcPathEntry)));
    SetGadgetText(kPcList, fileManagerSettings.pcFolder);
}
