// Local tools on the loopback address, and the events of the loop that serves them.
#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

#include "base/Pacing.h"
#include "ui/events/WaitWindowEvent.h"

// Takes events, and gives each to `serve`, until `done` holds; 20 s at most.
template <typename Done, typename Serve>
bool ServeUntil(Done done, Serve serve) {
    for (const int64_t end = NowMs() + 20000; !done(); serve(WaitForEvent(5))) {
        if (NowMs() > end) return false;
    }
    return true;
}

// One end of a connection, which never waits.
struct SocketEnd {
    ~SocketEnd() { Close(); }

    // How many bytes were taken.
    size_t Write(const std::string& bytes) const {
        const ssize_t n = send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        return n > 0 ? size_t(n) : 0;
    }
    // All that has come since the last call; `closed` when the other end has closed.
    std::string Read() {
        std::string all;
        char block[65536];
        ssize_t n = 0;
        while ((n = recv(fd, block, sizeof block, MSG_DONTWAIT)) > 0) all.append(block, n);
        closed = n == 0 || errno == ECONNRESET;
        return all;
    }
    void Close() {
        if (fd >= 0) close(fd);
        fd = -1;
    }

    int fd = -1;
    bool closed = false;
};

struct LoopbackAddress : sockaddr_in {
    explicit LoopbackAddress(int port, in_addr_t host = INADDR_LOOPBACK)
        : sockaddr_in{AF_INET, htons(static_cast<uint16_t>(port)), {htonl(host)}, {}} {}
    sockaddr* Generic() { return reinterpret_cast<sockaddr*>(this); }
};

// Listens on a port, 0 for any free one, which `port` then is.
inline int ListenLocally(int& port) {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    LoopbackAddress address(port);
    socklen_t length = sizeof address;
    (void)!bind(fd, address.Generic(), length);
    listen(fd, 4);
    getsockname(fd, address.Generic(), &length);
    port = ntohs(address.sin_port);
    return fd;
}

// A port that nobody holds.
inline int FreePort() {
    int port = 0;
    close(ListenLocally(port));
    return port;
}

struct LocalClient : SocketEnd {
    explicit LocalClient(int port, in_addr_t host = INADDR_LOOPBACK) {
        fd = socket(AF_INET, SOCK_STREAM, 0);
        connected = connect(fd, LoopbackAddress(port, host).Generic(), sizeof(sockaddr_in)) == 0;
    }
    // All that has come since the start.
    const std::string& Read() { return received += SocketEnd::Read(); }
    // Goes without a farewell: the server's next call fails.
    void Reset() {
        const linger none = {1, 0};
        setsockopt(fd, SOL_SOCKET, SO_LINGER, &none, sizeof none);
        Close();
    }

    bool connected = false;
    std::string received;
};
