#include "link/SerialLine.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include "link/Descriptor.h"

namespace {

struct SpeedRow {
    int64_t baud;
    tcflag_t code;
};

// 134 and 200 have no row on purpose.
constexpr SpeedRow kSpeeds[] = {
    {0, B0},         {50, B50},       {75, B75},       {110, B110},
    {150, B150},     {300, B300},     {600, B600},     {1200, B1200},
    {1800, B1800},   {2400, B2400},   {4800, B4800},   {9600, B9600},
    {19200, B19200}, {38400, B38400}, {57600, B57600}, {115200, B115200},
};

// What is added to the flag word above 115200 baud. 500000 has no row on purpose.
constexpr SpeedRow kSpeedSteps[] = {
    {230400, 1},
    {460800, 2},
    {576000, 4},
    {921600, 5},
};

// The sum reaches the high speeds only because their codes follow that of 115200.
static_assert(B115200 + 1 == B230400 && B115200 + 2 == B460800, "codes of the high speeds");
static_assert(B115200 + 4 == B576000 && B115200 + 5 == B921600, "codes of the high speeds");

template <size_t n>
const SpeedRow* FindSpeed(const SpeedRow (&rows)[n], int64_t baud) {
    for (const SpeedRow& row : rows) {
        if (row.baud == baud) return &row;
    }
    return nullptr;
}

// Built from nothing, so that no setting of an earlier user of the port survives. The
// speed lives in c_cflag alone; c_ispeed and c_ospeed stay 0.
termios RawLine(tcflag_t speedCode) {
    termios line = {};
    line.c_iflag = IGNPAR;
    line.c_cflag = speedCode | CS8 | CREAD | CLOCAL;
    line.c_cc[VEOF] = 4;
    line.c_cc[VTIME] = 0;
    line.c_cc[VMIN] = 1;
    // The program's own choice; neither acts while IXON is off.
    line.c_cc[VSTART] = 0x15;
    line.c_cc[VSTOP] = 0x17;
    return line;
}

}  // namespace

int OpenLine(const QString& path, int64_t baud) {
    const SpeedRow* speed = FindSpeed(kSpeeds, baud);
    if (!speed) return 0;
    // Close-on-exec, so that a program started from here does not keep the port.
    const int flags = O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC;
    const int fd = AboveStandardStreams(open(path.toUtf8().constData(), flags));
    if (fd < 1) return 0;
    const termios line = RawLine(speed->code);
    tcflush(fd, TCIFLUSH);
    tcsetattr(fd, TCSANOW, &line);
    return fd;
}

void RaiseLineSpeed(int fd, int64_t baud) {
    const SpeedRow* step = FindSpeed(kSpeedSteps, baud);
    termios line = {};
    tcgetattr(fd, &line);
    // A sum on the flag word, not a new code: this is how the speeds are reached.
    line.c_cflag += step ? step->code : 0;
    tcsetattr(fd, TCSANOW, &line);
    tcgetattr(fd, &line);  // read back for nothing
}
