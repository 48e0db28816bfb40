// Sockets of the loopback address, as a local tool opens them. Nothing here waits but for
// the connection itself.
#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

inline sockaddr_in LocalAddress(int port) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    return address;
}

// A socket that holds a port, 0 for any free one, and listens.
inline int ListenLocally(int port = 0) {
    const int fd = socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = LocalAddress(port);
    (void)!bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    listen(fd, 4);
    return fd;
}

inline int PortOf(int fd) {
    sockaddr_in address = {};
    socklen_t length = sizeof address;
    getsockname(fd, reinterpret_cast<sockaddr*>(&address), &length);
    return ntohs(address.sin_port);
}

// A port that nobody holds.
inline int FreePort() {
    const int fd = ListenLocally();
    const int port = PortOf(fd);
    close(fd);
    return port;
}

class LocalClient {
  public:
    explicit LocalClient(int port) {
        const sockaddr_in address = LocalAddress(port);
        connected = connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        fcntl(fd, F_SETFL, O_NONBLOCK);
    }
    ~LocalClient() { Close(); }
    LocalClient(const LocalClient&) = delete;
    LocalClient& operator=(const LocalClient&) = delete;

    void Write(const std::string& bytes) {
        (void)!send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
    // All that has come since the start.
    const std::string& Read() {
        char block[65536];
        ssize_t count = 0;
        while ((count = recv(fd, block, sizeof block, 0)) > 0) received.append(block, count);
        closed = count == 0 || errno == ECONNRESET;
        return received;
    }
    // The server has closed this connection.
    bool Closed() {
        Read();
        return closed;
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

    bool connected = false;

  private:
    int fd = socket(AF_INET, SOCK_STREAM, 0);
    bool closed = false;
    std::string received;
};
