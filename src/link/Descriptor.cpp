#include "link/Descriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <thread>

int AboveStandardStreams(int fd) {
    if (fd < 0) return 0;
    if (fd >= kLowestLinkDescriptor) return fd;
    const int above = fcntl(fd, F_DUPFD_CLOEXEC, kLowestLinkDescriptor);
    close(fd);
    return above < 0 ? 0 : above;
}

// The count goes up before the number is read, and ReplaceDescriptor changes the number
// before it reads the count, so that one of the two always sees the other.
DescriptorUse::DescriptorUse(const SharedDescriptor& used) : users(used.users) {
    ++users;
    fd = used.fd;
}

bool TakesBytes(const SharedDescriptor& descriptor) {
    const DescriptorUse use(descriptor);
    pollfd ready = {use.fd, POLLOUT, 0};
    return use.fd < 1 || poll(&ready, 1, 0) != 0;
}

void ReplaceDescriptor(SharedDescriptor& descriptor, int fd) {
    const int earlier = descriptor.fd.exchange(fd);
    if (earlier < 1) return;
    shutdown(earlier, SHUT_RDWR);  // a terminal gives ENOTSOCK, which is as good
    for (int i = 0; descriptor.users > 0 && i < kMostYieldsForUsers; ++i) std::this_thread::yield();
    close(earlier);
}
