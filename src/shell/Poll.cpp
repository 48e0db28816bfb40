#include "shell/Poll.h"

#include <QString>
#include <cstring>

#include "base/Numbers.h"
#include "filemanager/DeviceListing.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
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

}  // namespace

void PollLink() {
    if (linkStatus.pollingSuspended) return;
    if (LinkIsFree()) {
        const int64_t count = ReceiveBytes(RxBuffer(), LinkBufferSize());
        if (count > 0) {
            memcpy(TxBuffer(), RxBuffer(), static_cast<size_t>(count));
            modeRows[terminalMode].fromDevice(TxBuffer(), count);
        }
    }
    FinishSendListing();
}

void ShowClientBytes(const void* bytes, int64_t count) {
    modeRows[terminalMode].fromClient(bytes, count);
}
