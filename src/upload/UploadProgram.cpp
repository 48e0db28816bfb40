#include "upload/UploadProgram.h"

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/gadgets/Gadgets.h"
#include "upload/DeviceSpec.h"
#include "upload/EncodedUpload.h"
#include "upload/OnloadLine.h"
#include "upload/PinDialogue.h"
#include "upload/ProgressLabel.h"
#include "upload/SourcePreparation.h"
#include "upload/SpecText.h"
#include "upload/UploadBody.h"
#include "upload/UploadMethod.h"
#include "upload/UploadOptions.h"

namespace {

// Waits, in line delays.
constexpr int kBreakDelays = 3;
constexpr int kAbortDelays = 10;
constexpr int kCloseDelays = 10;
constexpr int kRunDelays = 20;

QString SendForDelays(const QString& text, int delays) {
    return SendAndWait(text, int64_t{linkSettings.lineDelay} * delays);
}

// Sends a command, prints what came back, and tells whether anything did.
bool SendCommand(const QString& command, int64_t wait) {
    const QString reply = SendAndWait(command + lineEnding.bytes, wait);
    TerminalPrintLine(reply);
    return reply != kTimeout;
}

// One line end for all that follows, and none of the editor's own lines.
void PrepareSource() {
    SetUploadText(NormaliseLineEndings(uploadSource.text));
    SetUploadText(StripMarkerLines(uploadSource.text));
}

// The way out of an upload that never comes to the device.
void LeaveWithoutUpload() {
    HideProgressLabel();
    FocusGadget(kTerminalCanvas);
}

// The first line in the one shape that the tests for a directive know.
QString DirectiveLine() {
    QString line = FirstLineOf(uploadSource.text);
    line.replace('\t', ' ');
    return MergeBlankPairs(TrimBlanks(line).toLower());
}

// What the field returns is dropped, so a crunch word there crunches nothing: only a line
// of the source itself can crunch the source.
void ApplySpecField() {
    const QString field = GadgetText(kSpecEntry);
    TerminalPrintLine("Uploading using:  " + field);
    ApplyDeviceSpec(field + '\n');
}

// The older form is obeyed even when the field overrides the lines of files.
void ChooseOptions() {
    const QString line = DirectiveLine();
    const bool onload = line.startsWith("'onload") || line.startsWith("' onload");
    const bool target = line.contains("'target") || line.contains("' target");
    if (onload) {
        SetUploadText(ApplyOnloadLine(uploadSource.text));
    } else if (target && uploadSettings.overrideFileSettings == 0) {
        SetUploadText(ApplyDeviceSpec(uploadSource.text));
    } else {
        ApplySpecField();
    }
    if (uploadSource.storeOnly) LeaveOutRun();
}

// Stops what the device does and passes its PIN, if it asks for one.
bool BreakOut() {
    const QString reply = SendForDelays(kBreakCode, kBreakDelays);
    return reply != kTimeout && PassPinDialogue(reply);
}

// The board's prompt tells that its memory is empty.
bool ClearProgram() {
    return uploadOptions.noNew || SendCommand("NEW", kWaitForPrompt);
}

bool SetDeviceClock() {
    if (!uploadOptions.setTime) return true;
    TerminalPrintLine("Setting clock");
    const QString mask = "date$ = \"%dd/%mm/%yyyy\": time$ = \"%hh:%ii:%ss\"";
    return SendCommand(FormatDate(mask, WallClock()), kWaitForPrompt);
}

bool SetDeviceRtc() {
    if (!uploadOptions.setRtc) return true;
    TerminalPrintLine("Setting RTC");
    const QString mask = "RTC SETTIME %yyyy, %mm, %dd, %hh, %ii, %ss";
    return SendCommand(FormatDate(mask, WallClock()), kWaitForPrompt);
}

// The echo of the command is enough: boards print nothing else before the first line.
bool OpenReceiveMode() {
    return SendCommand(uploadOptions.autosaveStart, kWaitForLine);
}

// The device goes back to its prompt with what it had, nothing of the program is stored.
void AbortUpload() {
    SendForDelays(kBreakCode, kAbortDelays);
    TerminalPrintLine("Program upload aborted");
}

// An empty end code sends nothing, but its wait stands.
void CloseReceiveMode() {
    const QString reply = SendForDelays(uploadOptions.autosaveEnd, kCloseDelays);
    if (uploadOptions.autosaveEnd.isEmpty()) return;
    TerminalPrintLine("Upload completed");
    TerminalPrintLine(reply);
}

// A board throws away what is typed while it stores the program, so RUN comes late.
void RunProgram() {
    if (uploadOptions.noRun) return;
    SleepMs(uploadSettings.autosaveEndDelay);
    SendCommand("RUN", int64_t{linkSettings.lineDelay} * kRunDelays);
}

// The dialogue with the device, up to the first step that fails. A failure in the body
// leaves receive mode open.
void TypeProgram() {
    const bool typed = BreakOut() && ClearProgram() && SetDeviceClock() && SetDeviceRtc() &&
                       OpenReceiveMode() && SendSourceLines(uploadSource.text);
    if (LeaveRequested()) return AbortUpload();
    if (!typed) return;
    CloseReceiveMode();
    RunProgram();
}

// What every upload ends with, however far it came.
void LeaveUpload() {
    HideProgressLabel();
    if (uploadOptions.disconnectAfter) {
        DisconnectDevice();
        TerminalPrintLine("Disconnected.");
    }
    FocusGadget(kTerminalCanvas);
}

void UploadSourceText() {
    PrepareSource();
    if (SourceAsksForEncoding()) {
        WriteEncodedSource();
        return LeaveWithoutUpload();
    }
    ResetMethod();  // the older directive form adds to what stands here
    ChooseOptions();
    TerminalPrintLine("Upload started");
    if (ConnectDevice() != 0) TypeProgram();
    LeaveUpload();
}

}  // namespace

void UploadProgram() {
    if (uploadSource.text.isEmpty()) {
        TerminalPrintLine("Nothing to load.");
        return;
    }
    ShowProgressLabel();
    const bool encoded = SourceIsEncoded();
    if (encoded && !DecodeSource()) return LeaveWithoutUpload();
    UploadSourceText();
    if (encoded) SetUploadText(QString());
}

void UploadPastedText(const QString& text) {
    SetPasteSource(true);
    SetCurrentFile(QString());
    SetUploadText(text);
    UploadProgram();
}
