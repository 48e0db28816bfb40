#include "link/SerialPort.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>

#include "link/LinkSeams.h"
#include "link/LinkSettings.h"
#include "link/SerialLine.h"
#include "terminal/screen/TerminalScreen.h"

namespace {

constexpr int64_t kTouchBaud = 1200;
constexpr int64_t kTouchBufferSize = 8192;

SharedDescriptor serialLink;

int KernelIoctl(int fd, unsigned long request, int* bits) {
    return ioctl(fd, request, bits);
}
int (*modemIoctl)(int fd, unsigned long request, int* bits) = KernelIoctl;

}  // namespace

int OpenSerialLink(const QString& path, int64_t baud, int64_t, int64_t) {
    const bool high = baud > kHighestPlainBaud;
    const int fd = OpenLine(path, high ? kHighestPlainBaud : baud);
    if (fd < 1) return 0;
    if (high) RaiseLineSpeed(fd, baud);
    // Closes the port before, if there is one, only now that the new one stands.
    ReplaceDescriptor(serialLink, fd);
    return fd;
}

const SharedDescriptor& SerialDescriptor() {
    return serialLink;
}

bool SerialLinkIsOpen() {
    return serialLink > 0;
}

int SerialBytesAvailable() {
    const DescriptorUse use(serialLink);
    int waiting = 0;
    if (use.fd > 0) ioctl(use.fd, FIONREAD, &waiting);
    return waiting;
}

int ReadSerialBytes(void* buffer, int count) {
    const DescriptorUse use(serialLink);
    if (use.fd < 1 || count < 1) return 0;
    return static_cast<int>(std::max<ssize_t>(read(use.fd, buffer, count), 0));
}

// What the kernel does not take at once is lost: a short write is not continued.
int WriteSerialBytes(const void* buffer, int count) {
    const DescriptorUse use(serialLink);
    if (use.fd < 1 || count < 1) return 0;
    return static_cast<int>(std::max<ssize_t>(write(use.fd, buffer, count), 0));
}

bool SerialTakesBytes() {
    return TakesBytes(serialLink);
}

void CloseSerialLink() {
    ReplaceDescriptor(serialLink, 0);
}

bool SetSerialDtr(bool on) {
    const DescriptorUse use(serialLink);
    int bits = 0;
    if (use.fd < 1 || modemIoctl(use.fd, TIOCMGET, &bits) < 0) return false;
    bits = on ? bits | TIOCM_DTR : bits & ~TIOCM_DTR;
    modemIoctl(use.fd, TIOCMSET, &bits);
    if (modemIoctl(use.fd, TIOCMGET, &bits) < 0) return false;
    return ((bits & TIOCM_DTR) != 0) == on;
}

// Leaves the port open at this speed, so that a later ConnectDevice finds it open and
// does not set its own. Required, like the first line that comes even after a failure.
void SerialTouch1200() {
    const int fd = OpenSerialLink("/dev/" + linkSettings.comPort, kTouchBaud, kTouchBufferSize,
                                  kTouchBufferSize);
    TerminalPrintLine("port " + linkSettings.comPort);
    if (fd > 0) TerminalPrintLine("port opened");
}

void AdoptSerialLink(int fd) {
    ReplaceDescriptor(serialLink, fd);
}

void InstallModemIoctl(int (*procedure)(int fd, unsigned long request, int* bits)) {
    modemIoctl = procedure ? procedure : KernelIoctl;
}
