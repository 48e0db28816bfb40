#include "link/ServerSockets.h"

#include <arpa/inet.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include "base/Choices.h"
#include "base/WorkerThread.h"

namespace {

constexpr int kBacklog = 100;
constexpr int kPeekedBytes = 8;
constexpr int kHighestPort = 65535;

bool ListenOn(int fd, int64_t port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(choices.localPorts ? INADDR_LOOPBACK : INADDR_ANY);
    address.sin_port = htons(static_cast<uint16_t>(port));
    // Without SO_REUSEADDR on purpose: a restart shortly after a close can fail.
    return bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
           listen(fd, kBacklog) == 0;
}

void SetOption(int fd, int level, int option, int value) {
    setsockopt(fd, level, option, &value, sizeof value);
}

// Bytes go out as they come, a peer whose machine is gone is found in the end, and there
// is room for a few polls' worth of a fast device from the first byte on.
void PrepareClient(int fd) {
    SetOption(fd, IPPROTO_TCP, TCP_NODELAY, 1);
    SetOption(fd, SOL_SOCKET, SO_KEEPALIVE, 1);
    int size = 0;
    socklen_t length = sizeof size;
    getsockopt(fd, SOL_SOCKET, SO_SNDBUF, &size, &length);
    if (size < kClientSendBuffer) SetOption(fd, SOL_SOCKET, SO_SNDBUF, kClientSendBuffer);
}

// The new client, null for none.
HeldDescriptor AcceptClient(ServerSockets& sockets) {
    const int flags = SOCK_NONBLOCK | SOCK_CLOEXEC;
    const int fd = AboveStandardStreams(accept4(sockets.listener, nullptr, nullptr, flags));
    if (fd < 1) return nullptr;
    auto client = std::make_shared<OpenDescriptor>(fd);
    if (sockets.clients.size() >= kMostServerClients) return nullptr;
    PrepareClient(fd);
    sockets.clients.push_back(client);
    return client;
}

}  // namespace

bool OpenServer(ServerSockets& sockets, int64_t port) {
    if (port < 0 || port > kHighestPort) return false;
    // Close-on-exec, so that a program started from here does not keep the port.
    const int flags = SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC;
    const int fd = AboveStandardStreams(socket(AF_INET, flags, 0));
    if (fd < 1) return false;
    if (!ListenOn(fd, port)) {
        close(fd);
        return false;
    }
    sockets.listener = fd;
    return true;
}

void WaitForServerEvent(const ServerSockets& sockets) {
    std::vector<pollfd> watched;
    watched.push_back({sockets.listener, POLLIN, 0});
    watched.push_back({StopDescriptor(), POLLIN, 0});
    for (const HeldDescriptor& client : sockets.clients) {
        watched.push_back({client->fd, POLLIN, 0});
    }
    poll(watched.data(), watched.size(), -1);
}

ServerEvent TakeServerEvent(ServerSockets& sockets, bool data) {
    if (HeldDescriptor client = AcceptClient(sockets)) {
        return {ServerEventKind::kNewClient, client};
    }
    for (size_t i = 0; i < sockets.clients.size(); ++i) {
        const HeldDescriptor client = sockets.clients[i];
        char bytes[kPeekedBytes];
        const ssize_t count = recv(client->fd, bytes, sizeof bytes, MSG_PEEK);
        if (count > 0 && data) return {ServerEventKind::kData, client};
        if (count != 0) continue;  // nothing there, or an error that the next call tells as gone
        sockets.clients.erase(sockets.clients.begin() + static_cast<std::ptrdiff_t>(i));
        return {ServerEventKind::kClientGone, client};
    }
    return {};
}

void CloseServer(ServerSockets& sockets) {
    if (sockets.listener > 0) close(sockets.listener);
    sockets.listener = 0;
    sockets.clients.clear();
}

QString ClientAddress(int client) {
    sockaddr_in address = {};
    socklen_t length = sizeof address;
    getpeername(client, reinterpret_cast<sockaddr*>(&address), &length);
    char text[INET_ADDRSTRLEN] = "";
    inet_ntop(AF_INET, &address.sin_addr, text, sizeof text);
    return text;
}
