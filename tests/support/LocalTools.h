// Local tools on the loopback address, and the events of the loop that serves them.
#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

#include "base/Pacing.h"
#include "ui/events/WaitWindowEvent.h"

constexpr int64_t kToolDeadline = 20000;  // milliseconds; never reached when all is well

// Takes events, and gives each to `serve`, until `done` holds.
template <typename Done, typename Serve>
bool ServeUntil(Done done, Serve serve) {
    for (const int64_t end = NowMs() + kToolDeadline; !done(); serve(WaitForEvent(5))) {
        if (NowMs() > end) return false;
    }
    return true;
}

inline sockaddr_in LocalAddress(int port, in_addr_t host = INADDR_LOOPBACK) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(host);
    address.sin_port = htons(static_cast<uint16_t>(port));
    return address;
}

// Listens on a port, 0 for any free one, which `port` then is.
inline int ListenLocally(int& port) {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = LocalAddress(port);
    socklen_t length = sizeof address;
    (void)!bind(fd, reinterpret_cast<sockaddr*>(&address), length);
    listen(fd, 4);
    getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
    port = ntohs(address.sin_port);
    return fd;
}

// A port that nobody holds.
inline int FreePort() {
    int port = 0;
    close(ListenLocally(port));
    return port;
}

struct LocalClient {
    explicit LocalClient(int port, in_addr_t host = INADDR_LOOPBACK) {
        const sockaddr_in address = LocalAddress(port, host);
        connected = connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        fcntl(fd, F_SETFL, O_NONBLOCK);
    }
    ~LocalClient() { Close(); }

    void Write(const std::string& bytes) { (void)!send(fd, bytes.data(), bytes.size(), 0); }
    // All that has come since the start; `closed` when the server has closed.
    const std::string& Read() {
        char block[65536];
        ssize_t count = 0;
        while ((count = recv(fd, block, sizeof block, 0)) > 0) received.append(block, count);
        closed = count == 0 || errno == ECONNRESET;
        return received;
    }
    void Close() {
        if (fd >= 0) close(fd);
        fd = -1;
    }
    // Goes without a farewell: the server's next call fails.
    void Reset() {
        const linger none = {1, 0};
        setsockopt(fd, SOL_SOCKET, SO_LINGER, &none, sizeof none);
        Close();
    }

    int fd = socket(AF_INET, SOCK_STREAM, 0);
    bool connected = false, closed = false;
    std::string received;
};
