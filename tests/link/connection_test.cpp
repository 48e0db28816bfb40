// Bringing the link up and down: what the terminal says and in which order, what the
// buttons show, and what stays open.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/tcp.h>
#include <pty.h>
#include <sys/ioctl.h>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalMode.h"
#include "tests/support/FarEnd.h"
#include "tests/support/StartState.h"
#include "tests/support/VirtualClock.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/windows/Windows.h"

namespace {

const bool startState = KeepStartState(PutBackLink);

using Outcome = std::pair<int64_t, QString>;  // the result, and what was printed

QString Notice(const QString& text) {
    return "\x1b[7m" + text + "\x1b[0m";
}

// A board on a pty and one that listens on the loopback address.
struct ConnectionTest : testing::Test {
    VirtualClock clock;
    int master = -1, slave = -1, listener = socket(AF_INET, SOCK_STREAM, 0);
    QString port, service;
    char block[16] = "";

    ConnectionTest() {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 100, "", kStandardWindowFlags);
        ButtonGadget(kConnectButton, 0, 0, 95, 20, "Connect");
        ButtonGadget(kDisconnectButton, 0, 0, 95, 20, "Disconnect");
        openpty(&master, &slave, block, nullptr, nullptr);
        port = QString(block).mid(5);
        sockaddr_in place = {};
        place.sin_family = AF_INET;
        socklen_t size = sizeof place;
        bind(listener, reinterpret_cast<sockaddr*>(&place), size);
        listen(listener, 4);
        getsockname(listener, reinterpret_cast<sockaddr*>(&place), &size);
        service = QString::number(ntohs(place.sin_port));
        SetTcpEndpoint("localhost", service);
        SetPollingSuspended(true);
    }
    ~ConnectionTest() override {
        DisconnectDevice();
        for (const int fd : {slave, master, listener}) close(fd);
    }
    Outcome Connect(const QString& name, const QString& speed) {
        SetComPort(name);
        SetSerialSpeed(speed);
        StartCapture();
        const int64_t result = ConnectDevice();
        return {result, TakeCapture()};
    }
    void ExpectUp(bool up, const QString& label) {
        EXPECT_EQ(linkStatus.linkConnected, up);
        EXPECT_EQ(linkStatus.linkLabel, label);
        EXPECT_EQ(GadgetHidden(kConnectButton), up);
        EXPECT_EQ(GadgetHidden(kDisconnectButton), !up);
    }
    void Disconnect() {
        StartCapture();
        SetMouseMode(1);
        DisconnectDevice();
        EXPECT_EQ(TakeCapture(), Notice("Disconnected"));
        EXPECT_FALSE(SerialLinkIsOpen() || linkStatus.netLink || mouseMode);
        ExpectUp(false, "");
    }
};

TEST_F(ConnectionTest, Serial) {
    const QString failed = " failed!Check port then try again";
    Disconnect();  // with nothing open
    EXPECT_EQ(Connect("NOT SET", "9600"), Outcome(0, "Set port number then try again"));
    EXPECT_FALSE(linkStatus.pollingSuspended);
    EXPECT_EQ(Connect("not set", "9600"), Outcome(0, "not set" + failed));
    EXPECT_EQ(Connect(port, "100000"), Outcome(0, port + failed));
    ExpectUp(false, "");
    EXPECT_EQ(clock.Now(), 0);
    // No number is 0 baud, which opens.
    EXPECT_EQ(Connect(port, "fast"), Outcome(-1, Notice("Connected to " + port + " at fast")));
    EXPECT_EQ(clock.Now(), 100);
    ExpectUp(true, port + ":fast");
    EXPECT_EQ(Connect(port, "1200"), Outcome(-1, ""));  // up already: the speed stays
    ExpectUp(true, port + ":fast");
    Disconnect();
}

int modemLines = 0;
int modemFault = 0;  // the call that fails, counted down

int RecordModemLines(int, unsigned long request, int* bits) {
    if (modemFault > 0 && --modemFault == 0) return -1;
    if (request == TIOCMSET) modemLines = *bits;
    if (request == TIOCMGET) *bits = modemLines;
    return 0;
}

// A board on USB is silent until DTR is on; the other lines are left as they are.
TEST_F(ConnectionTest, DtrComesOnAtConnect) {
    InstallModemIoctl(RecordModemLines);
    modemLines = TIOCM_RTS;
    EXPECT_EQ(Connect(port, "9600").first, -1);
    EXPECT_EQ(modemLines, TIOCM_RTS | TIOCM_DTR);
    EXPECT_TRUE(SetSerialDtr(false));
    EXPECT_EQ(modemLines, TIOCM_RTS);
    for (const int fault : {1, 3}) {
        modemFault = fault;
        EXPECT_FALSE(SetSerialDtr(true)) << fault;
    }
    InstallModemIoctl(nullptr);
    EXPECT_FALSE(SetSerialDtr(true));  // the kernel's pty has no such lines
}

// The serial link stays open meanwhile, the bytes go to the transport chosen now, and
// only DisconnectDevice closes both.
TEST_F(ConnectionTest, TcpBesideAnOpenPort) {
    Connect(port, "9600");
    SetPollingSuspended(true);
    SetDeviceOnTcpip(true);
    EXPECT_EQ(linkSettings.deviceOnTcpip, 1);
    EXPECT_EQ(SendText("nowhere"), -1);
    EXPECT_EQ(Connect("", ""), Outcome(-1, Notice("Connected to localhost port " + service)));
    ExpectUp(true, "localhost:" + service);
    EXPECT_TRUE(linkStatus.pollingSuspended);  // the serial road alone clears it
    const int peer = accept(listener, nullptr, nullptr);
    int on = 0;
    socklen_t size = sizeof on;
    getsockopt(linkStatus.netLink, IPPROTO_TCP, TCP_NODELAY, &on, &size);
    EXPECT_TRUE(on);  // a typed key does not wait for the one before
    SendText("hello");
    EXPECT_EQ(recv(peer, block, sizeof block, 0), 5);
    close(peer);  // nothing tells of a peer that has gone
    EXPECT_EQ(Connect("", ""), Outcome(-1, ""));
    EXPECT_EQ(clock.Now(), 100);  // the port's
    Disconnect();
    shutdown(listener, SHUT_RDWR);
    for (const QString& host :
         {QString("127.0.0.1"), QString(), QString("255.255.255.255"), QString(100000, 'a')}) {
        SetTcpEndpoint(host, service);
        EXPECT_EQ(Connect("", ""), Outcome(0, "")) << host.left(20).toStdString();
    }
}

// A program that was started with its standard input closed gets 0 from open(2) and
// socket(2), which must not read as failure.
TEST_F(ConnectionTest, DescriptorsStandAboveTheStandardStreams) {
    close(0);
    EXPECT_GE(OpenSerialLink("/dev/" + port, 9600, 0, 0), 3);
    const int fd = ConnectTcpClient("127.0.0.1", service.toInt());
    EXPECT_GE(fd, 3);
    CloseTcpClient(fd);
    EXPECT_EQ(fcntl(fd, F_GETFD) + fcntl(0, F_GETFD), -2);
    EXPECT_EQ(open("/dev/null", O_RDWR), 0);
}

}  // namespace
