// The device's side of the link: the other end of a socket pair whose near end is the
// program's serial port or TCP connection.
#pragma once

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <string>

#include "link/Connection.h"
#include "link/LinkSeams.h"
#include "link/SerialPort.h"

class FarEnd {
  public:
    explicit FarEnd(bool overTcp = false) {
        int ends[2] = {-1, -1};
        socketpair(AF_UNIX, SOCK_STREAM, 0, ends);
        fd = ends[1];
        fcntl(fd, F_SETFL, O_NONBLOCK);
        if (overTcp) {
            AdoptTcpLink(ends[0]);
        } else {
            fcntl(ends[0], F_SETFL, O_NONBLOCK);  // as the serial port opens it
            AdoptSerialLink(ends[0]);
        }
        SetDeviceOnTcpip(overTcp);
    }
    ~FarEnd() {
        Close();
        AdoptSerialLink(0);
        AdoptTcpLink(0);
    }

    // How many bytes the link took.
    size_t Write(const std::string& bytes) {
        const ssize_t count = send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        return count > 0 ? size_t(count) : 0;
    }

    // All that has come so far.
    std::string Read() {
        std::string all;
        char block[65536];
        for (ssize_t n; (n = read(fd, block, sizeof block)) > 0;) all.append(block, n);
        return all;
    }

    void Close() {
        if (fd >= 0) close(fd);
        fd = -1;
    }

  private:
    int fd = -1;
};
