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

using ByteRoad = void (*)(const void* bytes, int64_t count);

void Nothing(const void*, int64_t) {}

void ToTerminal(const void* bytes, int64_t count) {
    if (!linkStatus.quietTerminal) TerminalFeed(DecodeLinkText(bytes, count));
}

void ToListing(const void* bytes, int64_t count) {
    if (!linkStatus.quietTerminal) ParseListingChunk(DecodeLinkText(bytes, count));
}

// The device's bytes stand in normal video, the client's in reverse, so that the two
// directions can be told apart.
void DeviceToMonitor(const void* bytes, int64_t count) {
    SendToDataClient(bytes, count);
    TerminalFeed("\x1b[0m");
    TerminalPrintRaw(bytes, count);
}

void DeviceToHexMonitor(const void* bytes, int64_t count) {
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
    ByteRoad fromDevice;
    ByteRoad fromClient;
};

// Indexed by the terminal mode.
const ModeRow modeRows[] = {
    /* VT Terminal        */ {ToTerminal, Nothing},
    /* External VT helper */ {SendToDataClient, Nothing},
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
