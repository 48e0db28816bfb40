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

bool Begins(const QString& line, const char* mark) {
    return line.startsWith(QLatin1String(mark), Qt::CaseInsensitive);
}

// The last two are for a device of family "command" alone; other boards get the line.
bool TakeLine(const QString& line) {
    if (Begins(line, "'echo")) return EchoLine(line);
    if (Begins(line, "'onload") || Begins(line, "' onload")) return true;
    const bool commands = uploadOptions.familyName == "command";
    const QString word = FieldOf(line, 1, ' ').toLower();
    if (commands && word == "'reconnect") return Reconnect(line);
    if (commands && word == "'nap") return Nap(line);
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
