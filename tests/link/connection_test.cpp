// Bringing the link up and down: what the terminal says and in which order, what the
// buttons show, and what stays open.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <pty.h>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalMode.h"
#include "tests/support/FarEnd.h"
#include "tests/support/VirtualClock.h"
#include "ui/ButtonGadget.h"
#include "ui/Gadgets.h"
#include "ui/Windows.h"

namespace {

QString Notice(const QString& text) {
    return "\x1b[7m" + text + "\x1b[0m";
}

// A board on a pty and one that listens on the loopback address.
class ConnectionTest : public testing::Test {
  protected:
    void SetUp() override {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 100, "", kStandardWindowFlags);
        ButtonGadget(kConnectButton, 0, 0, 95, 20, "Connect");
        ButtonGadget(kDisconnectButton, 0, 0, 95, 20, "Disconnect");
        CloseGadgetList();
        HideGadget(kDisconnectButton, true);
        char name[64] = "";
        openpty(&master, &slave, name, nullptr, nullptr);
        port = QString(name).mid(5);
        SetComPort(port);
        sockaddr_in place = {};
        place.sin_family = AF_INET;
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof place;
        bind(listener, reinterpret_cast<sockaddr*>(&place), size);
        listen(listener, 4);
        getsockname(listener, reinterpret_cast<sockaddr*>(&place), &size);
        endpoint = ntohs(place.sin_port);
        SetTcpEndpoint("localhost", QString::number(endpoint));
    }
    void TearDown() override {
        AdoptSerialLink(0);
        AdoptTcpLink(0);
        for (const int fd : {slave, master, listener}) close(fd);
    }
    // Connects, and gives the result and what was printed.
    std::pair<int64_t, QString> Connect() {
        StartCapture();
        const int64_t result = ConnectDevice();
        EXPECT_EQ(GadgetHidden(kConnectButton), linkStatus.linkConnected);
        EXPECT_EQ(GadgetHidden(kDisconnectButton), !linkStatus.linkConnected);
        return {result, TakeCapture()};
    }
    void Disconnect() {
        StartCapture();
        SetMouseMode(1);
        DisconnectDevice();
        EXPECT_EQ(TakeCapture(), Notice("Disconnected"));
        EXPECT_FALSE(SerialLinkIsOpen());
        EXPECT_EQ(linkStatus.netLink, 0);
        EXPECT_FALSE(linkStatus.linkConnected);
        EXPECT_EQ(linkStatus.linkLabel, "");
        EXPECT_EQ(mouseMode, 0);
        EXPECT_FALSE(GadgetHidden(kConnectButton));
        EXPECT_TRUE(GadgetHidden(kDisconnectButton));
    }

    VirtualClock clock;
    int master = -1, slave = -1, listener = socket(AF_INET, SOCK_STREAM, 0), endpoint = 0;
    QString port;
};

using Outcome = std::pair<int64_t, QString>;

TEST_F(ConnectionTest, Serial) {
    Disconnect();  // with nothing open
    SetSerialSpeed("115200");
    EXPECT_EQ(Connect(), Outcome(-1, Notice("Connected to " + port + " at 115200")));
    EXPECT_EQ(clock.Now(), 100);
    SetSerialSpeed("1200");
    SetPollingSuspended(true);
    EXPECT_EQ(Connect(), Outcome(-1, ""));  // no new speed, but the poll reads again
    EXPECT_FALSE(linkStatus.pollingSuspended);
    EXPECT_EQ(linkStatus.linkLabel, port + ":115200");
    EXPECT_EQ(clock.Now(), 100);
    Disconnect();
}

TEST_F(ConnectionTest, SerialFailures) {
    const QString failed = " failed!Check port then try again";
    const QString cases[][3] = {
        {"NOT SET", "9600", "Set port number then try again"},
        {"not set", "9600", "not set" + failed},
        {"TTYUSB0", "9600", "TTYUSB0" + failed},
        {port, "100000", port + failed},
    };
    for (const auto& [name, speed, printed] : cases) {
        SetComPort(name);
        SetSerialSpeed(speed);
        SetPollingSuspended(true);
        EXPECT_EQ(Connect(), Outcome(0, printed));
        EXPECT_FALSE(linkStatus.linkConnected || linkStatus.pollingSuspended);
    }
    EXPECT_EQ(clock.Now(), 0);
    SetSerialSpeed("fast");  // 0 baud, which opens
    EXPECT_EQ(Connect(), Outcome(-1, Notice("Connected to " + port + " at fast")));
    Disconnect();
    // A touch opens the port behind the back of all this.
    SerialTouch1200();
    EXPECT_FALSE(linkStatus.linkConnected);
    EXPECT_EQ(Connect(), Outcome(-1, ""));
    EXPECT_EQ(linkStatus.linkLabel, "");
}

TEST_F(ConnectionTest, Tcp) {
    SetDeviceOnTcpip(true);
    SetPollingSuspended(true);
    const QString number = QString::number(endpoint);
    EXPECT_EQ(Connect(), Outcome(-1, Notice("Connected to localhost port " + number)));
    EXPECT_EQ(linkStatus.linkLabel, "localhost:" + number);
    EXPECT_EQ(linkSettings.deviceOnTcpip, 1);
    EXPECT_TRUE(linkStatus.pollingSuspended);  // the serial road alone clears it
    EXPECT_EQ(clock.Now(), 0);
    const int peer = accept(listener, nullptr, nullptr);
    SendText("hello");
    char block[8] = "";
    EXPECT_EQ(recv(peer, block, 8, 0), 5);
    close(peer);  // nothing tells of a peer that has gone
    EXPECT_EQ(Connect(), Outcome(-1, ""));
    Disconnect();

    close(listener);
    const QString endpoints[][2] = {{"127.0.0.1", number},
                                    {"127.0.0.1", "none"},
                                    {"", number},
                                    {"255.255.255.255", number},
                                    {QString(100000, 'a'), number}};
    for (const auto& [host, service] : endpoints) {
        SetTcpEndpoint(host, service);
        EXPECT_EQ(Connect(), Outcome(0, "")) << host.left(20).toStdString();
    }
}

// The other transport's link stays open, the bytes go to the one chosen now, and only
// DisconnectDevice closes both.
TEST_F(ConnectionTest, ChangeOfTransportWhileUp) {
    ASSERT_EQ(ConnectDevice(), -1);
    SetDeviceOnTcpip(true);
    EXPECT_EQ(SendText("nowhere"), -1);
    ASSERT_EQ(ConnectDevice(), -1);
    EXPECT_EQ(SendText("tcp"), 3);
    SetDeviceOnTcpip(false);
    EXPECT_EQ(SendText("serial"), 6);
    char block[16] = "";
    EXPECT_EQ(read(master, block, 16), 6);
    Disconnect();
}

// A program that was started with its standard input closed gets 0 from open(2) and
// socket(2), which must not read as failure.
TEST_F(ConnectionTest, DescriptorsStandAboveTheStandardStreams) {
    const int input = dup(0);
    close(0);
    EXPECT_GE(OpenSerialLink("/dev/" + port, 9600, 0, 0), 3);
    EXPECT_EQ(fcntl(0, F_GETFD), -1);
    const int fd = ConnectTcpClient("127.0.0.1", endpoint);
    EXPECT_GE(fd, 3);
    EXPECT_EQ(fcntl(0, F_GETFD), -1);
    CloseTcpClient(fd);
    EXPECT_EQ(fcntl(fd, F_GETFD), -1);
    dup2(input, 0);
    CloseTcpClient(0);
    EXPECT_NE(fcntl(0, F_GETFD), -1);
    close(input);
}

}  // namespace
