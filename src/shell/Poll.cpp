#include "shell/Poll.h"

#include <QString>
#include <algorithm>
#include <cstring>

#include "base/Choices.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "filemanager/DeviceListing.h"
#include "link/Connection.h"
#include "link/FollowCable.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "link/LinkWatch.h"
#include "link/SendListing.h"
#include "link/Servers.h"
#include "terminal/screen/MonitorViews.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/VtParser.h"
#include "xmodem/TransferWorkers.h"

namespace {

using DeviceRoad = void (*)(uint8_t* bytes, int64_t count);  // may change the bytes
using ClientRoad = void (*)(const void* bytes, int64_t count);

void Nothing(const void*, int64_t) {}

QString TextOf(uint8_t* bytes, int64_t count) {
    return DecodeLinkText(bytes, TakeOffTelnet(bytes, count));
}

void ToTerminal(uint8_t* bytes, int64_t count) {
    const QString text = TextOf(bytes, count);
    if (!linkStatus.quietTerminal) TerminalFeed(text);
}

void ToListing(uint8_t* bytes, int64_t count) {
    const QString text = TextOf(bytes, count);
    if (!linkStatus.quietTerminal) ParseListingChunk(text);
}

void ToDataClient(uint8_t* bytes, int64_t count) {
    SendToDataClient(bytes, count);
}

// The device's bytes stand in normal video, the client's in reverse, so that the two
// directions can be told apart.
void DeviceToMonitor(uint8_t* bytes, int64_t count) {
    SendToDataClient(bytes, count);
    TerminalFeed("\x1b[0m");
    TerminalPrintRaw(bytes, TakeOffTelnet(bytes, count));
}

void DeviceToHexMonitor(uint8_t* bytes, int64_t count) {
    SendToDataClient(bytes, count);
    TerminalFeed("\x1b[0m");
    TerminalHexDump(bytes, count);
}

void ClientToMonitor(const void* bytes, int64_t count) {
    TerminalFeed("\x1b[7m");
    TerminalPrintRaw(bytes, count);
}

void ClientToHexMonitor(const void* bytes, int64_t count) {
    TerminalFeed("\x1b[7m");
    TerminalHexDump(bytes, count);
}

struct ModeRow {
    DeviceRoad fromDevice;
    ClientRoad fromClient;
};

// Indexed by the terminal mode.
const ModeRow modeRows[] = {
    /* VT Terminal        */ {ToTerminal, Nothing},
    /* External VT helper */ {ToDataClient, Nothing},
    /* Monitor            */ {DeviceToMonitor, ClientToMonitor},
    /* HEX monitor        */ {DeviceToHexMonitor, ClientToHexMonitor},
    /* File Manager       */ {ToListing, Nothing},
};
static_assert(sizeof(modeRows) / sizeof(modeRows[0]) == kModes, "one row for each mode");

// While a worker lives the bytes are its own; while the queue takes a step they belong to
// its dialogue.
bool LinkIsFree() {
    return !XmodemSendWorkerRuns() && !XmodemReceiveWorkerRuns() && !linkStatus.queueBusy;
}

// How the bytes are read that come between two firings of the timer. What is typed is
// answered in a few bytes, which are read at once. A stream is not, as each read costs a turn
// of the loop and each change a showing; but a flood is, or the line would stand still.
constexpr int64_t kLightTraffic = 512;  // bytes in a poll's interval
constexpr int64_t kLeastCharge = 64;    // bytes that a read counts for at the least

struct ReadPace {
    int64_t intervalEnd = 0;
    int64_t traffic = 0;   // bytes in this interval
    int64_t floodEnd = 0;  // an interval behind the last full read
    bool paused = false;
};

ReadPace pace;

void CountTraffic(int64_t count) {
    const int64_t now = NowMs();
    if (now >= pace.intervalEnd) {
        pace.intervalEnd = now + linkSettings.pollingInterval;
        pace.traffic = 0;
    }
    pace.traffic += std::max(count, kLeastCharge);
    if (count >= LargestRead()) pace.floodEnd = now + linkSettings.pollingInterval;
    pace.paused = pace.traffic > kLightTraffic && now >= pace.floodEnd;
}

// Bytes that nobody takes, as those of a peer that has gone, are left to the timer.
void ReadAsItComes(int64_t count) {
    if (!choices.readAsItComes || LinkIsWatched()) return;
    if (count > 0) {
        CountTraffic(count);
    } else {
        pace = {0, 0, 0, !pace.paused};
    }
    if (!pace.paused) WatchLink();
}

int64_t ReadLink() {
    const int64_t count = ReceiveBytes(RxBuffer(), LinkBufferSize());
    if (count > 0) {
        memcpy(TxBuffer(), RxBuffer(), static_cast<size_t>(count));
        modeRows[terminalMode].fromDevice(TxBuffer(), count);
    }
    return count;
}

}  // namespace

void PollLink() {
    FollowCable();
    if (linkStatus.pollingSuspended) return;
    if (LinkIsFree()) ReadAsItComes(ReadLink());
    FinishSendListing();
}

void ShowClientBytes(const void* bytes, int64_t count) {
    modeRows[terminalMode].fromClient(bytes, count);
}
