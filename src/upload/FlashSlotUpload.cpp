#include "upload/FlashSlotUpload.h"

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Notice.h"
#include "ui/windows/Windows.h"
#include "upload/DeviceFamily.h"
#include "upload/ProgressLabel.h"
#include "upload/SourceFile.h"
#include "upload/SourceLines.h"
#include "upload/SourcePreparation.h"
#include "upload/UploadMethod.h"
#include "upload/UploadOptions.h"

namespace {

constexpr int kTransferNoticeMs = 4000;
constexpr int kEndCodeDelays = 30;  // line delays
constexpr int kSavedPolls = 201;    // polls for the word that ends the saving
constexpr int kSavedPollMs = 200;
constexpr int kBeforeOverwriteMs = 100;
constexpr int kAfterOverwriteMs = 800;
constexpr int kBeforeListMs = 200;

QString pendingFlashText;
bool slotUploadArmed = false;
void (*afterUpload)() = nullptr;

struct FlashMethod {
    QString start;
    QString end;
};

// Only the number behind the backslash counts here: a row of "\027[12~" gives the escape
// byte alone. A family without a row, such as vgamite, gets the usual method: with no
// receive mode open the device would run every line as a command.
FlashMethod MethodOfFamily() {
    const DeviceFamily* family = FindFamily(GadgetText(kFamilyCombo));
    const QString start = family ? family->autostart : QString("autosave");
    const QString code = family ? family->autoend : QString("\\026");
    const QString end =
        code.isEmpty() ? QString() : ByteText(static_cast<int>(TextToInteger(code.mid(1))));
    return {start, end + lineEnding.bytes};
}

// What was read before is forgotten, even if the new file fails.
void ReadPendingFile(const QString& path) {
    SetPasteSource(false);
    slotUploadArmed = ReadWholeSource(path, pendingFlashText);
}

void StartNotice() {
    CloseNotice();
    ShowNotice("Transfering now", kTransferNoticeMs);
}

// Lines go out as they stand. A missing echo does not stop them, a program that is to leave
// does.
void SendFlashLines() {
    SourceLines lines(StripMarkerLines(NormaliseLineEndings(pendingFlashText)));
    StartProgress(lines.Count());
    for (int i = 1; !lines.AtEnd() && !LeaveRequested(); ++i) {
        SendAndWait(lines.Next() + lineEnding.bytes, kWaitForLine);
        StepProgress(i, lines.Count());
    }
}

// The device writes its flash memory before it says that it saved.
void CloseReceiveMode(const QString& endCode) {
    QString reply = SendAndWait(endCode, int64_t{linkSettings.lineDelay} * kEndCodeDelays);
    int polls = 0;
    do {
        ++polls;
        reply += SendAndWait(QString(), kSavedPollMs);
    } while (!reply.contains("Saved") && polls < kSavedPolls);
    TerminalPrintLine("Upload completed " + QString::number(polls));
    TerminalPrintLine(reply);
}

// The label that counts the lines is left showing; nothing here takes it away.
void UploadPendingText() {
    const FlashMethod method = MethodOfFamily();
    ShowProgressLabel();
    TerminalPrintLine(SendAndWait(method.start + lineEnding.bytes, kWaitForLine));
    SendFlashLines();
    CloseReceiveMode(LeaveRequested() ? kBreakCode : method.end);
}

void OverwriteSlot(int slot) {
    if (slot == 0 || pendingFlashText.isEmpty() || LeaveRequested()) return;
    SleepMs(kBeforeOverwriteMs);
    SendText("FLASH OVERWRITE " + QString::number(slot) + lineEnding.bytes);
}

// Waits until the device is at its prompt, then shows its list anew.
void FinishUpload() {
    pendingFlashText.clear();
    SleepMs(kAfterOverwriteMs);
    SendAndWait("\r", 0);
    SleepMs(kBeforeListMs);
    SetQuietTerminal(false);
    SendAndWait("\r", 0);
    if (afterUpload) afterUpload();
    ActivateNumberedWindow(kFileManagerWindow);
}

void UploadToSlot(int slot) {
    slotUploadArmed = false;
    StartNotice();
    if (pendingFlashText.isEmpty()) {
        TerminalPrintLine("Nothing to load.");
    } else {
        UploadPendingText();
    }
    CloseNumberedWindow(kNoticeWindow);
    OverwriteSlot(slot);
    FinishUpload();
}

}  // namespace

void FlashSlotUpload(const QString& path, int slot) {
    SetQuietTerminal(true);
    if (slot >= 0) {
        UploadToSlot(slot);
    } else if (!path.isEmpty()) {
        ReadPendingFile(path);
        ActivateNumberedWindow(kFileManagerWindow);
    }
    SetQuietTerminal(false);
}

bool SlotUploadArmed() {
    return slotUploadArmed;
}

void SetAfterFlashUpload(void (*procedure)()) {
    afterUpload = procedure;
}
