#include "simulator/boardsim/Endpoint.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace simulator {

// A TCP listener with one host at a time, or the master side of a pseudo-terminal (posix_openpt).

namespace {

bool Complain(const std::string& what) {
    std::fprintf(stderr, "boardsim: %s: %s\n", what.c_str(), std::strerror(errno));
    return false;
}

void MakeNonblocking(int fd) {
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) | O_NONBLOCK);
}

// An address may be taken anew at once after an end; a port that is in use stays refused.
bool OpenTcp(const SimOptions& options, Endpoint* endpoint) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(options.port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    endpoint->listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    setsockopt(endpoint->listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    auto* any = reinterpret_cast<sockaddr*>(&address);
    socklen_t size = sizeof address;
    if (bind(endpoint->listener, any, size) != 0 || listen(endpoint->listener, 1) != 0)
        return Complain("can't listen on port " + std::to_string(options.port) +
                        " (--port chooses another one)");
    getsockname(endpoint->listener, any, &size);
    MakeNonblocking(endpoint->listener);
    endpoint->place = "localhost port " + std::to_string(ntohs(address.sin_port));
    return true;
}

// The slave side is held open, so that hosts may come and go.
bool OpenPty(Endpoint* endpoint) {
    const int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    char name[128] = {};
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0 ||
        ptsname_r(master, name, sizeof name) != 0 ||
        open(name, O_RDWR | O_NOCTTY | O_CLOEXEC) < 0) {
        return Complain("can't open a pseudo-terminal");
    }
    termios settings = {};
    tcgetattr(master, &settings);
    cfmakeraw(&settings);
    cfsetspeed(&settings, B115200);
    tcsetattr(master, TCSANOW, &settings);
    MakeNonblocking(master);
    endpoint->line = master;
    endpoint->place = name;
    return true;
}

}  // namespace

bool OpenEndpoint(const SimOptions& options, Endpoint* endpoint) {
    return options.pty ? OpenPty(endpoint) : OpenTcp(options, endpoint);
}

// Keys and blocks are small: nothing is to wait for more.
bool AcceptHost(Endpoint& endpoint) {
    endpoint.line = accept4(endpoint.listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (endpoint.line < 0) return false;
    const int on = 1;
    setsockopt(endpoint.line, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return true;
}

void DropHost(Endpoint& endpoint) {
    close(endpoint.line);
    endpoint.line = -1;
}

}  // namespace simulator
