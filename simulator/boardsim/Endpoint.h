// Where a host finds the board: a TCP port of this machine or a pseudo-terminal.
#pragma once

#include <string>

#include "simulator/boardsim/SimOptions.h"

namespace simulator {

struct Endpoint {
    int listener = -1;  // TCP only
    int line = -1;      // to the host; -1: nobody is connected
    std::string place;  // for people: "localhost port 3001", "/dev/pts/4"
};

// Opens it as the options say. False with a message on stderr.
bool OpenEndpoint(const SimOptions& options, Endpoint* endpoint);

// A host is waiting at the listener: takes it. False if it went away again.
bool AcceptHost(Endpoint& endpoint);

void DropHost(Endpoint& endpoint);

}  // namespace simulator
