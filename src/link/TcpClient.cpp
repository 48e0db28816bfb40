#include "link/TcpClient.h"

#include <arpa/inet.h>
#include <errno.h>
#include <netdb.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "link/Descriptor.h"
#include "ui/Drawing.h"
#include "ui/InterfaceLayer.h"

namespace {

// Bytes that the kernel may hold for us. Its default is about one read of the largest size:
// the queue then runs dry between two polls, since the window opens late.
constexpr int kReceiveQueue = 512 * 1024;

bool ResolveHost(const QByteArray& host, in_addr& address) {
    if (host.size() > kLongestHostName) return false;
    address.s_addr = inet_addr(host.constData());
    if (address.s_addr != INADDR_NONE) return true;
    const hostent* found = gethostbyname(host.constData());
    if (!found || found->h_addrtype != AF_INET || !found->h_addr_list[0]) return false;
    address = *reinterpret_cast<const in_addr*>(found->h_addr_list[0]);
    return address.s_addr != INADDR_NONE;
}

bool ConnectSocket(int fd, const QString& host, int port) {
    sockaddr_in endpoint = {};
    endpoint.sin_family = AF_INET;
    endpoint.sin_port = htons(static_cast<uint16_t>(port));
    if (!ResolveHost(host.toUtf8(), endpoint.sin_addr)) return false;
    return connect(fd, reinterpret_cast<const sockaddr*>(&endpoint), sizeof endpoint) == 0;
}

}  // namespace

int ConnectTcpClient(const QString& host, int port) {
    const int fd = AboveStandardStreams(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (fd < 1) return 0;
    // Before connect(2): the window's scale is agreed on there. tcp(7)
    setsockopt(fd, SOL_SOCKET, SO_RCVBUF, &kReceiveQueue, sizeof kReceiveQueue);
    if (OnInterfaceThread()) FlushPainting();
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
    return count < 1 ? 0 : send(fd, buffer, static_cast<size_t>(count), MSG_NOSIGNAL);
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
