// The serial port on a real pty, and what happens when there is none.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "link/LinkSettings.h"
#include "link/SerialPort.h"
#include "terminal/screen/Capture.h"

namespace {

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
        CloseSerialLink();
        close(slave);
        close(master);
    }
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

TEST(Serial, SpeedsAndTheirCodes) {
    const std::pair<int64_t, tcflag_t> rows[] = {
        {0, 0},           {110, 3},         {150, 5},         {1200, 9},       {38400, 15},
        {57600, 4097},    {115200, 4098},   {115201, 4098},   {128000, 4098},  {500000, 4098},
        {230400, 0x1003}, {460800, 0x1004}, {576000, 0x1006}, {921600, 0x1007}};
    Port port;
    for (const auto& [baud, code] : rows) {
        EXPECT_GT(Open(port.path, baud), 0) << baud;
        EXPECT_EQ(port.Line().c_cflag, code | CS8 | CREAD | CLOCAL) << baud;
    }
    for (const int64_t baud : {-1, 134, 200, 100000, 115199}) EXPECT_EQ(Open(port.path, baud), 0);
}

TEST(Serial, LineIsRawAndNothingOfTheEarlierSettingStays) {
    Port port;
    port.Say("ab\n");
    const int fd = Open(port.path, 921600);
    EXPECT_EQ(SerialBytesAvailable(), 0);  // what waited before was flushed
    EXPECT_EQ(fcntl(fd, F_GETFL) & (O_ACCMODE | O_NONBLOCK), O_RDWR | O_NONBLOCK);
    EXPECT_EQ(fcntl(fd, F_GETFD), FD_CLOEXEC);
    const termios line = port.Line();
    EXPECT_EQ(line.c_iflag, static_cast<tcflag_t>(IGNPAR));
    EXPECT_EQ(line.c_oflag + line.c_lflag + line.c_line, 0U);
}

TEST(Serial, BytesBothWays) {
    Port port;
    char block[8] = "";
    EXPECT_EQ(SerialBytesAvailable() + ReadSerialBytes(block, 8) + WriteSerialBytes("x", 1), 0);
    Open(port.path);
    EXPECT_EQ(ReadSerialBytes(block, 8), 0);  // would wait, were the port blocking
    port.Say("\x03\r\n");
    EXPECT_EQ(SerialBytesAvailable(), 3);
    EXPECT_EQ(ReadSerialBytes(block, -1), 0);
    EXPECT_EQ(ReadSerialBytes(block, 8), 3);
    EXPECT_EQ(WriteSerialBytes("a\n", 2), 2);
    EXPECT_EQ(read(port.master, block + 3, 5), 2);
    EXPECT_STREQ(block, "\x03\r\na\n");
    close(port.master);  // the adapter is pulled
    EXPECT_EQ(SerialBytesAvailable() + ReadSerialBytes(block, 8) + WriteSerialBytes("x", 1), 0);
    EXPECT_TRUE(SerialLinkIsOpen());
}

TEST(Serial, OpensThatFail) {
    char file[] = "/tmp/kwcc-port-XXXXXX";
    close(mkstemp(file));
    for (const QString& path : {QString("/dev/TTYUSB0"), QString("/dev/"), QString(100000, 'x')})
        EXPECT_EQ(Open(path), 0);
    // Nobody may read it; the administrator may, and becomes another user for the try.
    chmod(file, 0);
    const uid_t user = geteuid();
    EXPECT_EQ(user == 0 ? seteuid(65534) : 0, 0);
    EXPECT_EQ(Open(file), 0);
    EXPECT_EQ(seteuid(user), 0);
    EXPECT_FALSE(SerialLinkIsOpen());
    // A file outside that is no terminal takes no line setting, which is not looked at.
    chmod(file, 0600);
    EXPECT_GT(Open("/dev/.." + QString(file), 921600), 0);
    unlink(file);
}

TEST(Serial, TouchReplacesThePortAndLeavesItOpenAt1200) {
    Port first, second;
    const int earlier = Open(first.path);
    StartCapture();
    SetComPort("none");
    SerialTouch1200();
    EXPECT_EQ(WriteSerialBytes("1", 1), 1);  // a failed open leaves the link as it was
    SetComPort(QString(second.path).mid(5));
    SerialTouch1200();
    EXPECT_EQ(TakeCapture(), "port noneport " + linkSettings.comPort + "port opened");
    EXPECT_EQ(fcntl(earlier, F_GETFD), -1);
    EXPECT_EQ(WriteSerialBytes("2", 1), 1);
    char byte = 0;
    EXPECT_EQ(read(second.master, &byte, 1), 1);
    EXPECT_EQ(second.Line().c_cflag & CBAUD, static_cast<tcflag_t>(B1200));
}

}  // namespace
