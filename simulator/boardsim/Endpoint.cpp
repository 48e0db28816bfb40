#include "simulator/boardsim/Endpoint.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/stat.h>
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
    std::fprintf(stderr, "boardsim: %s\n", what.c_str());
    return false;
}

bool ComplainErrno(const std::string& what) {
    return Complain(what + ": " + std::strerror(errno));
}

void MakeNonblocking(int fd) {
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) | O_NONBLOCK);
}

// An address may be taken anew at once after an end; a port that is in use stays refused.
bool OpenTcp(const SimOptions& options, Endpoint* endpoint) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(options.port));
    const std::string numeric = options.address == "localhost" ? "127.0.0.1" : options.address;
    if (inet_pton(AF_INET, numeric.c_str(), &address.sin_addr) != 1) {
        return Complain("\"" + options.address + "\" is no IPv4 address");
    }
    endpoint->listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    setsockopt(endpoint->listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    const auto* any = reinterpret_cast<const sockaddr*>(&address);
    if (bind(endpoint->listener, any, sizeof address) != 0 || listen(endpoint->listener, 1) != 0) {
        if (errno == EADDRINUSE) {
            return Complain("port " + std::to_string(options.port) +
                            " is taken; is another boardsim running? --port chooses another one");
        }
        return ComplainErrno("can't listen on " + options.address + " port " +
                             std::to_string(options.port));
    }
    socklen_t size = sizeof address;
    getsockname(endpoint->listener, reinterpret_cast<sockaddr*>(&address), &size);
    MakeNonblocking(endpoint->listener);
    endpoint->place = options.address + " port " + std::to_string(ntohs(address.sin_port));
    return true;
}

// An old link of ours may stand there; anything else is left alone.
bool MakeLink(const std::string& target, const std::string& link) {
    struct stat status = {};
    if (lstat(link.c_str(), &status) == 0 && S_ISLNK(status.st_mode)) unlink(link.c_str());
    return symlink(target.c_str(), link.c_str()) == 0 ||
           ComplainErrno("can't make the link " + link);
}

// The slave side is held open, so that hosts may come and go; with --once it is not, so
// that the end of the first host shows as a hang-up.
bool OpenPty(const SimOptions& options, Endpoint* endpoint) {
    endpoint->isPty = true;
    const int master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    char name[128] = {};
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0 ||
        ptsname_r(master, name, sizeof name) != 0) {
        return ComplainErrno("can't open a pseudo-terminal");
    }
    termios settings = {};
    tcgetattr(master, &settings);
    cfmakeraw(&settings);
    cfsetspeed(&settings, B115200);
    tcsetattr(master, TCSANOW, &settings);
    if (!options.once && open(name, O_RDWR | O_NOCTTY | O_CLOEXEC) < 0) {
        return ComplainErrno(std::string("can't open ") + name);
    }
    MakeNonblocking(master);
    endpoint->line = master;
    endpoint->place = name;
    if (options.link.empty()) return true;
    if (!MakeLink(name, options.link)) return false;
    endpoint->link = options.link;
    return true;
}

}  // namespace

bool OpenEndpoint(const SimOptions& options, Endpoint* endpoint) {
    return options.pty ? OpenPty(options, endpoint) : OpenTcp(options, endpoint);
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
    if (endpoint.line >= 0) close(endpoint.line);
    endpoint.line = -1;
}

void CloseEndpoint(Endpoint& endpoint) {
    DropHost(endpoint);
    if (endpoint.listener >= 0) close(endpoint.listener);
    endpoint.listener = -1;
    if (!endpoint.link.empty()) unlink(endpoint.link.c_str());
    endpoint.link.clear();
}

}  // namespace simulator
