#include "link/Descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

int AboveStandardStreams(int fd) {
    if (fd < 0) return 0;
    if (fd >= kLowestLinkDescriptor) return fd;
    const int above = fcntl(fd, F_DUPFD_CLOEXEC, kLowestLinkDescriptor);
    close(fd);
    return std::max(above, 0);
}

OpenDescriptor::~OpenDescriptor() {
    close(fd);
}

SharedDescriptor::operator int() const {
    return DescriptorUse(*this).fd;
}

HeldDescriptor SharedDescriptor::Exchange(HeldDescriptor next) {
    return std::atomic_exchange(&held, std::move(next));
}

bool TakesBytes(const SharedDescriptor& descriptor) {
    const DescriptorUse use(descriptor);
    pollfd ready = {use.fd, POLLOUT, 0};
    return use.fd < 1 || poll(&ready, 1, 0) != 0;
}

// In this order, since the last bytes may come together with the end. A tty that was hung up
// has no bytes to tell of any more (EIO).
bool HasEnded(const SharedDescriptor& descriptor) {
    const DescriptorUse use(descriptor);
    pollfd state = {use.fd, POLLRDHUP, 0};
    if (use.fd < 1 || poll(&state, 1, 0) < 1) return false;
    int waiting = 0;
    return ioctl(use.fd, FIONREAD, &waiting) < 0 || waiting == 0;
}

void ReplaceDescriptor(SharedDescriptor& descriptor, int fd) {
    HeldDescriptor next = fd > 0 ? std::make_shared<OpenDescriptor>(fd) : nullptr;
    const HeldDescriptor earlier = descriptor.Exchange(std::move(next));
    if (earlier) shutdown(earlier->fd, SHUT_RDWR);  // a terminal gives ENOTSOCK, which is as good
}
