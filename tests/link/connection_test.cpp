// The link over a pty and over the loopback address: what is set, said, shown and left open.
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>

#include "tests/link/link_rig.h"

namespace {

const bool startState = KeepStartState(PutBackLink);

// `master` is the board's side, `path` the device that the program opens. The line stands as
// for a user's session, with echo and translated line ends.
struct Port {
    int master = -1, slave = -1;
    char path[64] = "";

    Port() { openpty(&master, &slave, path, nullptr, nullptr); }
    ~Port() {
        DisconnectDevice();
        for (const int fd : {slave, master}) close(fd);
    }
    QString Name() const { return QString(path).mid(5); }  // behind "/dev/"
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
    for (const int64_t baud : {-1, 134, 200, 100000, 115199}) EXPECT_EQ(Open(port.path, baud), 0);
    for (const QString& path : {QString("/dev/TTYUSB0"), QString("/dev/"), QString(100000, 'x')})
        EXPECT_EQ(Open(path), 0);
    EXPECT_FALSE(SerialLinkIsOpen());
    termios line = {};
    char block[8] = "";
    pollfd arrival = {port.slave, POLLIN, 0};  // through the kernel
    EXPECT_EQ(ReadSerialBytes(block, 8) + WriteSerialBytes("x", 1), 0);
    for (const auto& [baud, code] : rows) {
        EXPECT_EQ(write(port.master, "ab\n", 3) + poll(&arrival, 1, 5000), 4);
        const int fd = Open(port.path, baud);
        EXPECT_EQ(fcntl(fd, F_GETFL) & (O_ACCMODE | O_NONBLOCK), O_RDWR | O_NONBLOCK);
        EXPECT_EQ(fcntl(fd, F_GETFD), FD_CLOEXEC);
        EXPECT_EQ(ReadSerialBytes(block, 8), 0);  // what waited before was flushed
        tcgetattr(port.slave, &line);
        EXPECT_EQ(line.c_cflag, code | CS8 | CREAD | CLOCAL) << baud;
        EXPECT_EQ(line.c_iflag + line.c_oflag + line.c_lflag + line.c_line, unsigned{IGNPAR});
        EXPECT_EQ(memcmp(line.c_cc, "\0\0\0\0\4\0\1\0\x15\x17", 10), 0);
    }
    close(port.master);  // the adapter is pulled
    EXPECT_EQ(ReadSerialBytes(block, 8) + WriteSerialBytes("x", 1), 0);
    EXPECT_TRUE(SerialLinkIsOpen());
}

// Else a Ctrl-C from the board would end a program that was started without a terminal.
TEST(Serial, ThePortIsNoControllingTerminal) {
    const Port port;
    int status = -1;
    if (fork() == 0)
        _exit(setsid() > 0 && Open(port.path) > 0 && open("/dev/tty", O_RDWR) < 0 ? 7 : 1);
    wait(&status);
    EXPECT_EQ(WEXITSTATUS(status), 7);
}

// A board on a pty and one that listens on the loopback address.
struct ConnectionTest : testing::Test {
    VirtualClock clock;
    Port board;
    QString port = board.Name();
    std::string serial = port.toStdString();
    int number = 0, listener = ListenLocally(number);
    std::string service = std::to_string(number);

    ConnectionTest() {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 100, "", kStandardWindowFlags);
        ButtonGadget(kConnectButton, 0, 0, 95, 20, "Connect");
        ButtonGadget(kDisconnectButton, 0, 0, 95, 20, "Disconnect");
        SetTcpEndpoint("localhost", QString::number(number));
    }
    ~ConnectionTest() override { close(listener); }
    // What an act prints, the link's label, the milliseconds, and what holds behind it.
    template <typename Act>
    std::string State(Act act) {
        const int64_t start = clock.Now();
        StartCapture();
        act();
        QString state = TakeCapture().replace("\x1b[7m", "[").replace("\x1b[0m", "]") + '|' +
                        linkStatus.linkLabel + '|' + QString::number(clock.Now() - start);
        const std::pair<bool, const char*> facts[] = {
            {linkStatus.linkConnected, " up"}, {!GadgetHidden(kConnectButton), " C"},
            {SerialLinkIsOpen(), " serial"},   {!GadgetHidden(kDisconnectButton), " D"},
            {linkStatus.netLink > 0, " tcp"},  {linkStatus.pollingSuspended, " suspended"},
            {LinkIsWatched(), " watched"},     {mouseMode != 0, " mouse"}};
        for (const auto& [holds, name] : facts) state += holds ? name : "";
        return state.toStdString();
    }
    std::string Connect(const QString& name = "", const QString& speed = "9600") {
        SetComPort(name);
        SetSerialSpeed(speed);
        SetPollingSuspended(true);
        return State([] {
            const int64_t result = ConnectDevice();
            EXPECT_EQ(result, linkStatus.linkConnected ? -1 : 0);
        });
    }
    std::string Disconnect() {
        SetMouseMode(1);
        WatchLink();
        return State(DisconnectDevice);
    }
};

TEST_F(ConnectionTest, Serial) {
    EXPECT_EQ(Disconnect(), "[Disconnected]||0 C");  // with nothing open
    EXPECT_EQ(Connect("NOT SET"), "Set port number then try again||0 C");
    for (const QString& name : {QString("not set"), port})  // no such port, no such speed
        EXPECT_EQ(Connect(name, "100000"),
                  name.toStdString() + " failed!Check port then try again||0 C");
    // No number is 0 baud, which opens.
    const std::string up = '|' + serial + ":fast|";
    EXPECT_EQ(Connect(port, "fast"),
              "[Connected to " + serial + " at fast]" + up + "100 up serial D");
    EXPECT_EQ(Connect(port, "1200"), up + "0 up serial D");  // up already: the speed stays
    // A touch opens another port at 1200 baud in its place; one that fails leaves it.
    const int earlier = SerialDescriptor();
    SetComPort("none");
    EXPECT_EQ(State(SerialTouch1200), "port none" + up + "0 up serial D");
    const Port second;
    SetComPort(second.Name());
    EXPECT_EQ(State(SerialTouch1200),
              "port " + second.Name().toStdString() + "port opened" + up + "0 up serial D");
    EXPECT_EQ(fcntl(earlier, F_GETFD), -1);
    termios line = {};
    tcgetattr(second.slave, &line);
    EXPECT_EQ(line.c_cflag & CBAUD, static_cast<tcflag_t>(B1200));
    EXPECT_EQ(Disconnect(), "[Disconnected]||0 C");
}

// A board on USB is silent until DTR is on; the other lines are left as they are.
TEST_F(ConnectionTest, DtrComesOnAtConnect) {
    static int lines;
    static std::string calls;
    lines = TIOCM_RTS;
    calls.clear();
    InstallModemIoctl([](int, unsigned long request, int* bits) {
        const bool set = request == TIOCMSET;
        calls += set ? "set " + std::to_string(*bits) + ' ' : "get ";
        (set ? lines : *bits) = set ? *bits : lines;
        return calls.size() > 42 ? -1 : 0;
    });
    Connect(port);
    EXPECT_TRUE(SetSerialDtr(false));
    EXPECT_FALSE(SetSerialDtr(true));  // a failing look changes nothing
    EXPECT_EQ(calls, "get set 6 get get set 6 get get set 4 get get ");
    InstallModemIoctl(nullptr);
}

TEST_F(ConnectionTest, TcpBesideAnOpenPort) {
    Connect(port);
    SetDeviceOnTcpip(true);
    EXPECT_EQ(linkSettings.deviceOnTcpip, 1);
    EXPECT_EQ(SendText("nowhere"), -1);
    const std::string up = "|localhost:" + service + "|0 up serial D tcp suspended";
    EXPECT_EQ(Connect(), "[Connected to localhost port " + service + ']' + up);
    const int peer = accept(listener, nullptr, nullptr);
    // A typed key does not wait for the one before; the kernel may halve what was asked for.
    EXPECT_TRUE(SocketOption(linkStatus.netLink, IPPROTO_TCP, TCP_NODELAY));
    EXPECT_GT(SocketOption(linkStatus.netLink, SOL_SOCKET, SO_RCVBUF), 300 * 1024);
    EXPECT_EQ(fcntl(linkStatus.netLink, F_GETFD), FD_CLOEXEC);
    char block[16] = "";
    SendText("hello");
    EXPECT_EQ(recv(peer, block, sizeof block, 0), 5);
    close(peer);  // nothing tells of a peer that has gone
    EXPECT_EQ(Connect(), up);
    EXPECT_EQ(Disconnect(), "[Disconnected]||0 C suspended");
    listen(listener, 0);
    const LocalClient first(number);  // a second one finds no room, and waits
    clock.onTick = [end = clock.Now() + 250](int64_t now) { RequestLeave(now >= end); };
    EXPECT_EQ(Connect(), "||300 C suspended");
    RequestLeave(false);
    shutdown(listener, SHUT_RDWR);
    for (const char* host : {"127.0.0.1", "", "255.255.255.255"}) {
        SetTcpEndpoint(host, QString::number(number));
        EXPECT_EQ(Connect(), "||0 C suspended") << host;
    }
    EXPECT_EQ(ConnectTcpClient(QString(100000, 'a'), number), 0);
}

// With its standard input closed a program gets 0 from open(2) and socket(2).
TEST_F(ConnectionTest, DescriptorsStandAboveTheStandardStreams) {
    close(0);
    EXPECT_GE(Open("/dev/" + port), 3);
    const int fd = ConnectTcpClient("127.0.0.1 ", number);  // with a blank behind it
    EXPECT_GE(fd, 3);
    CloseTcpClient(fd);
    EXPECT_EQ(fcntl(fd, F_GETFD) + fcntl(0, F_GETFD), -2);
    EXPECT_EQ(open("/dev/null", O_RDWR), 0);
}

}  // namespace
