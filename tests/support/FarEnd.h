// The device's side of the link: the other end of a socket pair whose near end is the
// program's serial port or TCP connection.
#pragma once

#include "link/Connection.h"
#include "link/LinkSeams.h"
#include "link/SerialPort.h"
#include "tests/support/LocalTools.h"

class FarEnd : public SocketEnd {
  public:
    explicit FarEnd(bool overTcp = false) {
        int ends[2] = {-1, -1};
        socketpair(AF_UNIX, SOCK_STREAM, 0, ends);
        fd = ends[1];
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
};
