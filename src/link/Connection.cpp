#include "link/Connection.h"

#include "base/Numbers.h"
#include "base/Pacing.h"
#include "base/TextRules.h"
#include "link/LinkSeams.h"
#include "link/LinkSettings.h"
#include "link/LinkWatch.h"
#include "link/SerialPort.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/VtParser.h"
#include "ui/gadgets/Gadgets.h"

namespace {

constexpr int64_t kLinkUp = -1;
constexpr int64_t kLinkDown = 0;
constexpr int64_t kSettleAfterOpen = 100;  // milliseconds

LinkStatus status;

void ShowConnectButtons(bool connected) {
    HideGadget(kConnectButton, connected);
    HideGadget(kDisconnectButton, !connected);
}

// The end of both roads, whether the link came up now or was up before.
int64_t CountAsConnected() {
    status.linkConnected = true;
    ShowConnectButtons(true);
    return kLinkUp;
}

bool OpenConfiguredPort() {
    const int64_t baud = TextToInteger(linkSettings.serialSpeed);
    const int64_t size = linkSettings.commsBufferSize;
    return OpenSerialLink("/dev/" + linkSettings.comPort, baud, size, size) > 0;
}

// A board on USB neither sends nor reads before DTR is on. It is set twice on purpose.
void WakeSerialDevice() {
    SleepMs(kSettleAfterOpen);
    SetSerialDtr(true);
    SetSerialDtr(true);
}

int64_t ConnectSerial() {
    status.pollingSuspended = false;
    // Upper case alone: the default "not set" goes on to an open that fails.
    if (linkSettings.comPort == "NOT SET") {
        TerminalPrintLine("Set port number then try again");
        return kLinkDown;
    }
    if (SerialLinkIsOpen()) return CountAsConnected();
    if (ReopenSerialPort()) return kLinkUp;
    TerminalPrintLine(linkSettings.comPort + " failed!");
    TerminalPrintLine("Check port then try again");
    return kLinkDown;
}

void TakeNetLink(int fd) {
    ++status.netLinks;
    ReplaceDescriptor(status.netLink, fd);
}

int64_t ConnectTcp() {
    if (status.netLink != 0) return CountAsConnected();
    const int port = TextToInteger32(linkSettings.tcpPort);
    TakeNetLink(ConnectTcpClient(linkSettings.tcpAddress, port));
    if (status.netLink == 0) return kLinkDown;  // without a word, unlike the serial port
    ShowLinkNotice("Connected to " + linkSettings.tcpAddress + " port " + linkSettings.tcpPort);
    status.linkLabel = linkSettings.tcpAddress + ":" + linkSettings.tcpPort;
    return CountAsConnected();
}

}  // namespace

const LinkStatus& linkStatus = status;

void SetDeviceOnTcpip(bool on) {
    status.deviceOnTcpip = on;
    StoreDeviceOnTcpip(on);
}

void SetPollingSuspended(bool on) {
    status.pollingSuspended = on;
}

void SetQueueBusy(bool on) {
    status.queueBusy = on;
}

void SetQuietTerminal(bool on) {
    status.quietTerminal = on;
}

int64_t ConnectDevice() {
    return status.deviceOnTcpip ? ConnectTcp() : ConnectSerial();
}

bool ReopenSerialPort() {
    if (!OpenConfiguredPort()) return false;
    WakeSerialDevice();
    ShowLinkNotice("Connected to " + linkSettings.comPort + " at " + linkSettings.serialSpeed);
    status.linkLabel = linkSettings.comPort + ":" + linkSettings.serialSpeed;
    return CountAsConnected() == kLinkUp;
}

void DisconnectDevice() {
    ForgetLinkWatch();
    if (SerialLinkIsOpen()) CloseSerialLink();
    if (status.netLink > 0) ReplaceDescriptor(status.netLink, 0);
    ShowLinkNotice("Disconnected");
    SetMouseMode(0);
    status.linkConnected = false;
    status.linkLabel.clear();
    ShowConnectButtons(false);
}

// The attribute goes on and off by calls of their own: the first ends its line, so the
// text stands alone on the next, and the last adds no line feed.
void ShowLinkNotice(const QString& text) {
    TerminalPrintLine("\x1b[7m");
    TerminalPrintLine(text);
    TerminalFeed("\x1b[0m");
}

void AdoptTcpLink(int fd) {
    TakeNetLink(fd);
}
