#include "upload/UploadBody.h"

#include <algorithm>

#include "base/LineEnding.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/TerminalScreen.h"
#include "upload/DeviceSpec.h"
#include "upload/ProgressLabel.h"
#include "upload/SourceLines.h"
#include "upload/SpecText.h"
#include "upload/UploadOptions.h"

namespace {

constexpr int kDefaultNap = 2;     // seconds
constexpr int kEchoTextStart = 6;  // behind the directive and one character
constexpr int kMsPerSecond = 1000;

// The second word of a line as seconds. A negative number waits not at all.
int NapSeconds(const QString& line) {
    const int64_t asked = TextToInteger(FieldOf(line, 2, ' '));
    if (asked == 0) return kDefaultNap;
    return static_cast<int>(std::clamp<int64_t>(asked, 0, kLongestNap));
}

bool TakeNothing(const QString&) {
    return true;
}

bool EchoLine(const QString& line) {
    TerminalPrintLine(line.mid(kEchoTextStart));
    return true;
}

// Gives the device time, as after a command that restarts it.
bool Nap(const QString& line) {
    TerminalPrintLine("Nap");
    SleepMs(int64_t{NapSeconds(line)} * kMsPerSecond);
    return true;
}

// A port on the line is in force only while nothing is connected, because the port of
// before is put back; its speed stays. Both are meant.
bool Reconnect(const QString& line) {
    DisconnectDevice();
    TerminalPrintLine("Forced disconnect");
    const QString port = linkSettings.comPort;
    const int found = line.indexOf(" com");
    if (found >= 0) SetPortAndSpeed(WordAt(line, found + 1));
    SleepMs(int64_t{NapSeconds(line)} * kMsPerSecond);
    TerminalPrintLine("Attempted reconnect");
    SetComPort(port);
    ConnectDevice();
    return true;
}

// The echo paces the upload: a board that is still at work echoes later.
bool SendLine(const QString& line) {
    return SendAndWait(line + lineEnding.bytes, kWaitForLine) != kTimeout;
}

struct LineDirective {
    const char* mark;  // what the line begins with, lower-cased
    int length;        // characters compared
    bool wholeWord;    // a blank or the line's end follows
    bool forCommands;  // on a device of family "command" alone; other boards get the line
    bool (*take)(const QString& line);
};

// The first that fits is taken.
const LineDirective lineDirectives[] = {
    {"'echo", 5, false, false, EchoLine},
    {"'onload", 7, false, false, TakeNothing},
    {"' onload", 8, false, false, TakeNothing},
    {"'reconnect ", 11, true, true, Reconnect},
    {"'nap ", 5, true, true, Nap},
};

// A line that ends with the word has no blank behind it, so one is lent to it.
bool Fits(const LineDirective& directive, const QString& line) {
    if (directive.forCommands && uploadOptions.familyName != "command") return false;
    QString start = line.left(directive.length);
    if (directive.wholeWord) start = (start + ' ').left(directive.length);
    return start.toLower() == directive.mark;
}

bool TakeLine(const QString& line) {
    for (const LineDirective& directive : lineDirectives) {
        if (Fits(directive, line)) return directive.take(line);
    }
    return SendLine(line);
}

}  // namespace

bool SendSourceLines(const QString& source) {
    SourceLines lines(source);
    StartProgress(lines.Count());
    for (int i = 1; !lines.AtEnd(); ++i) {
        if (LeaveRequested() || !TakeLine(TrimBlanks(lines.Next()))) return false;
        StepProgress(i, lines.Count());
    }
    return true;
}
