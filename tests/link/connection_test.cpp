// The link over a pty and over the loopback address: opening and programming it, the bytes
// both ways, what the terminal says and the buttons show, and what stays open.
#include <gtest/gtest.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalMode.h"
#include "tests/support/FarEnd.h"
#include "tests/support/LocalTools.h"
#include "tests/support/StartState.h"
#include "tests/support/VirtualClock.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/windows/Windows.h"

namespace {

const bool startState = KeepStartState(PutBackLink);

// `master` is the board's side, `path` the device that the program opens. The line has
// been in other hands before.
struct Port {
    int master = -1, slave = -1;
    char path[64] = "";

    Port() {
        termios used = {};
        used.c_iflag = IXON | ICRNL;
        used.c_oflag = OPOST | ONLCR;
        used.c_cflag = B9600 | CS8 | CSTOPB | CRTSCTS;
        used.c_lflag = ICANON | ECHO | ISIG;
        openpty(&master, &slave, path, &used, nullptr);
    }
    ~Port() {
        DisconnectDevice();
        for (const int fd : {slave, master}) close(fd);
    }
    QString Name() const { return QString(path).mid(5); }  // behind "/dev/"
    termios Line() const {
        termios line = {};
        tcgetattr(slave, &line);
        return line;
    }
    // The board writes three bytes, and they have come through the kernel.
    void Say(const char* bytes) const {
        pollfd arrival = {slave, POLLIN, 0};
        EXPECT_EQ(write(master, bytes, 3) + poll(&arrival, 1, 5000), 4);
    }
};

int Open(const QString& path, int64_t baud = 9600) {
    return OpenSerialLink(path, baud, 8192, 8192);
}

TEST(Serial, SpeedsAndTheirCodesOnARawLine) {
    const std::pair<int64_t, tcflag_t> rows[] = {
        {0, 0},           {50, 1},          {75, 2},         {110, 3},       {150, 5},
        {300, 7},         {600, 8},         {1200, 9},       {1800, 10},     {2400, 11},
        {4800, 12},       {9600, 13},       {19200, 14},     {38400, 15},    {57600, 4097},
        {115200, 4098},   {115201, 4098},   {128000, 4098},  {500000, 4098}, {230400, 0x1003},
        {460800, 0x1004}, {576000, 0x1006}, {921600, 0x1007}};
    Port port;
    port.Say("ab\n");
    for (const auto& [baud, code] : rows) {
        const int fd = Open(port.path, baud);
        EXPECT_EQ(fcntl(fd, F_GETFL) & (O_ACCMODE | O_NONBLOCK), O_RDWR | O_NONBLOCK);
        EXPECT_EQ(fcntl(fd, F_GETFD), FD_CLOEXEC);
        EXPECT_EQ(SerialBytesAvailable(), 0);  // what waited before was flushed
        const termios line = port.Line();
        EXPECT_EQ(line.c_cflag, code | CS8 | CREAD | CLOCAL) << baud;
        EXPECT_EQ(line.c_iflag, static_cast<tcflag_t>(IGNPAR));
        EXPECT_EQ(line.c_oflag + line.c_lflag + line.c_line, 0U);
        EXPECT_EQ(memcmp(line.c_cc, "\0\0\0\0\4\0\1\0\x15\x17", 10), 0);
    }
    for (const int64_t baud : {-1, 134, 200, 100000, 115199}) EXPECT_EQ(Open(port.path, baud), 0);
}

TEST(Serial, BytesBothWays) {
    Port port;
    char block[8] = "";
    EXPECT_EQ(SerialBytesAvailable() + ReadSerialBytes(block, 8) + WriteSerialBytes("x", 1), 0);
    Open(port.path);
    EXPECT_EQ(ReadSerialBytes(block, 8), 0);  // would wait, were the port blocking
    port.Say("\x03\r\n");
    EXPECT_EQ(SerialBytesAvailable(), 3);
    EXPECT_EQ(ReadSerialBytes(block, -1) + ReadSerialBytes(block, 8), 3);
    EXPECT_EQ(WriteSerialBytes("a\n", 0) + WriteSerialBytes("a\n", 2), 2);
    EXPECT_EQ(read(port.master, block + 3, 5), 2);
    EXPECT_STREQ(block, "\x03\r\na\n");
    close(port.master);  // the adapter is pulled
    EXPECT_EQ(SerialBytesAvailable() + ReadSerialBytes(block, 8) + WriteSerialBytes("x", 1), 0);
    EXPECT_TRUE(SerialLinkIsOpen());
}

TEST(Serial, OpensThatFail) {
    for (const QString& path : {QString("/dev/TTYUSB0"), QString("/dev/"), QString(100000, 'x')})
        EXPECT_EQ(Open(path), 0);
    EXPECT_FALSE(SerialLinkIsOpen());
}

// A program that was started without a terminal does not get the port for one: a Ctrl-C from
// the board would end it.
TEST(Serial, ThePortIsNoControllingTerminal) {
    const Port port;
    int status = -1;
    if (fork() == 0) {
        setsid();
        _exit(Open(port.path) > 0 && open("/dev/tty", O_RDWR) < 0 ? 7 : 1);
    }
    wait(&status);
    EXPECT_EQ(WEXITSTATUS(status), 7);
}

TEST(Serial, TouchReplacesThePortAndLeavesItOpenAt1200) {
    Port first, second;
    const int earlier = Open(first.path);
    StartCapture();
    SetComPort("none");
    SerialTouch1200();
    EXPECT_EQ(WriteSerialBytes("1", 1), 1);  // a failed open leaves the link as it was
    SetComPort(second.Name());
    SerialTouch1200();
    EXPECT_EQ(TakeCapture(), "port noneport " + linkSettings.comPort + "port opened");
    EXPECT_EQ(fcntl(earlier, F_GETFD), -1);
    EXPECT_EQ(WriteSerialBytes("2", 1), 1);
    char byte = 0;
    EXPECT_EQ(read(second.master, &byte, 1), 1);
    EXPECT_EQ(second.Line().c_cflag & CBAUD, static_cast<tcflag_t>(B1200));
}

// A board on a pty and one that listens on the loopback address.
struct ConnectionTest : testing::Test {
    VirtualClock clock;
    Port board;
    QString port = board.Name();
    int number = 0, listener = ListenLocally(number);
    QString service = QString::number(number);

    ConnectionTest() {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 100, "", kStandardWindowFlags);
        ButtonGadget(kConnectButton, 0, 0, 95, 20, "Connect");
        ButtonGadget(kDisconnectButton, 0, 0, 95, 20, "Disconnect");
        SetTcpEndpoint("localhost", service);
        SetPollingSuspended(true);
    }
    ~ConnectionTest() override { close(listener); }
    // What was printed and what stands then: the label, and which button cannot be seen.
    static std::string State() {
        EXPECT_NE(GadgetHidden(kConnectButton), GadgetHidden(kDisconnectButton));
        EXPECT_EQ(linkStatus.linkConnected, GadgetHidden(kConnectButton));
        return (TakeCapture().replace("\x1b[7m", "[").replace("\x1b[0m", "]") + '|' +
                linkStatus.linkLabel + (linkStatus.linkConnected ? "|up" : "|down"))
            .toStdString();
    }
    std::string Connect(const QString& name = "", const QString& speed = "9600") {
        SetComPort(name);
        SetSerialSpeed(speed);
        StartCapture();
        const int64_t result = ConnectDevice();
        EXPECT_EQ(result, linkStatus.linkConnected ? -1 : 0);
        return State();
    }
    std::string Disconnect() {
        StartCapture();
        SetMouseMode(1);
        DisconnectDevice();
        EXPECT_FALSE(SerialLinkIsOpen() || linkStatus.netLink || mouseMode);
        return State();
    }
};

TEST_F(ConnectionTest, Serial) {
    const std::string failed = " failed!Check port then try again||down";
    const std::string up = '|' + port.toStdString() + ":fast|up";
    EXPECT_EQ(Disconnect(), "[Disconnected]||down");  // with nothing open
    EXPECT_EQ(Connect("NOT SET"), "Set port number then try again||down");
    EXPECT_FALSE(linkStatus.pollingSuspended);
    EXPECT_EQ(Connect("not set"), "not set" + failed);
    EXPECT_EQ(Connect(port, "100000"), port.toStdString() + failed);
    EXPECT_EQ(clock.Now(), 0);
    // No number is 0 baud, which opens.
    EXPECT_EQ(Connect(port, "fast"), "[Connected to " + port.toStdString() + " at fast]" + up);
    EXPECT_EQ(clock.Now(), 100);
    EXPECT_EQ(Connect(port, "1200"), up);  // up already: the speed stays
    EXPECT_EQ(Disconnect(), "[Disconnected]||down");
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
    Connect(port);
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
    Connect(port);
    SetPollingSuspended(true);
    SetDeviceOnTcpip(true);
    EXPECT_EQ(linkSettings.deviceOnTcpip, 1);
    EXPECT_EQ(SendText("nowhere"), -1);
    const std::string up = "|localhost:" + service.toStdString() + "|up";
    EXPECT_EQ(Connect(), "[Connected to localhost port " + service.toStdString() + ']' + up);
    EXPECT_TRUE(linkStatus.pollingSuspended);  // the serial road alone clears it
    const int peer = accept(listener, nullptr, nullptr);
    const auto option = [](int level, int name) {
        int value = 0;
        socklen_t size = sizeof value;
        getsockopt(linkStatus.netLink, level, name, &value, &size);
        return value;
    };
    EXPECT_TRUE(option(IPPROTO_TCP, TCP_NODELAY));  // a typed key does not wait for the one before
    EXPECT_GT(option(SOL_SOCKET, SO_RCVBUF), 300 * 1024);  // the kernel may halve what was asked
    EXPECT_EQ(fcntl(linkStatus.netLink, F_GETFD), FD_CLOEXEC);
    char block[16] = "";
    SendText("hello");
    EXPECT_EQ(recv(peer, block, sizeof block, 0), 5);
    close(peer);  // nothing tells of a peer that has gone
    EXPECT_EQ(Connect(), up);
    EXPECT_EQ(clock.Now(), 100);  // the port's
    EXPECT_EQ(Disconnect(), "[Disconnected]||down");
    listen(listener, 0);
    const LocalClient first(number);  // a second one finds no room, and waits
    clock.onTick = [end = clock.Now() + 250](int64_t now) { RequestLeave(now >= end); };
    EXPECT_EQ(Connect(), "||down");
    RequestLeave(false);
    EXPECT_EQ(clock.Now(), 100 + 300);
    shutdown(listener, SHUT_RDWR);
    for (const QString& host :
         {QString("127.0.0.1"), QString(), QString("255.255.255.255"), QString(100000, 'a')}) {
        SetTcpEndpoint(host, service);
        EXPECT_EQ(Connect(), "||down") << host.left(20).toStdString();
    }
}

// A program that was started with its standard input closed gets 0 from open(2) and
// socket(2), which must not read as failure.
TEST_F(ConnectionTest, DescriptorsStandAboveTheStandardStreams) {
    close(0);
    EXPECT_GE(Open("/dev/" + port), 3);
    const int fd = ConnectTcpClient("127.0.0.1", number);
    EXPECT_GE(fd, 3);
    CloseTcpClient(fd);
    EXPECT_EQ(fcntl(fd, F_GETFD) + fcntl(0, F_GETFD), -2);
    EXPECT_EQ(open("/dev/null", O_RDWR), 0);
}

}  // namespace
