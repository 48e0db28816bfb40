#include "link/TcpClient.h"

#include <errno.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "base/Pacing.h"
#include "base/WorkerThread.h"
#include "link/Descriptor.h"
#include "link/HostLookup.h"

namespace {

// Bytes that the kernel may hold for us. Its default is about one read of the largest size:
// the queue then runs dry between two polls, since the window opens late.
constexpr int kReceiveQueue = 512 * 1024;

constexpr int64_t kWaitStep = 100;  // milliseconds between two looks whether to leave

// Waits as long as the kernel would, or until the program is to leave or the worker to end.
bool AwaitWritable(int fd) {
    while (!LeaveRequested() && !WorkerIsStopped()) {
        if (AwaitReady(fd, POLLOUT, kWaitStep)) return true;
    }
    return false;
}

bool ConnectionStands(int fd) {
    int error = 0;
    socklen_t length = sizeof error;
    return getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &length) == 0 && error == 0;
}

bool ConnectSocket(int fd, const QString& host, int port) {
    sockaddr_in endpoint = {};
    endpoint.sin_family = AF_INET;
    endpoint.sin_port = htons(static_cast<uint16_t>(port));
    if (!LookUpHost(host.toUtf8(), endpoint.sin_addr)) return false;
    if (connect(fd, reinterpret_cast<const sockaddr*>(&endpoint), sizeof endpoint) == 0)
        return true;
    return errno == EINPROGRESS && AwaitWritable(fd) && ConnectionStands(fd);
}

}  // namespace

int ConnectTcpClient(const QString& host, int port) {
    const int flags = SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK;
    const int fd = AboveStandardStreams(socket(AF_INET, flags, 0));
    if (fd < 1) return 0;
    // Before connect(2): the window's scale is agreed on there. tcp(7)
    setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &kReceiveQueue, sizeof kReceiveQueue);
    if (!ConnectSocket(fd, host, port)) {
        close(fd);
        return 0;
    }
    // A typed key goes out alone and at once, not when the one before is acknowledged.
    const int on = 1;
    setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return fd;
}

void CloseTcpClient(int fd) {
    if (fd > 0) close(fd);
}

int64_t SendTcpBytes(int fd, const void* buffer, int64_t count) {
    const auto* bytes = static_cast<const uint8_t*>(buffer);
    int64_t taken = 0;
    while (taken < count) {
        const auto left = static_cast<size_t>(count - taken);
        const ssize_t sent = send(fd, bytes + taken, left, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent >= 0) {
            taken += sent;
        } else if (errno != EAGAIN || !AwaitWritable(fd)) {
            return taken > 0 ? taken : -1;
        }
    }
    return taken;
}

int64_t ReceiveTcpBytes(int fd, void* buffer, int64_t maximum) {
    // poll(2) and not select(2), which writes past its set for a descriptor above 1023.
    pollfd ready = {fd, POLLIN, 0};
    if (maximum < 1 || poll(&ready, 1, 0) < 1) return 0;
    int waiting = 0;
    if (ioctl(fd, FIONREAD, &waiting) < 0 || waiting == 0) return 0;
    // Another thread may have taken the bytes meanwhile; that must not become a wait.
    const ssize_t count = recv(fd, buffer, static_cast<size_t>(maximum), MSG_DONTWAIT);
    return count < 0 && errno == EAGAIN ? 0 : static_cast<int32_t>(count);
}
