// Where a host finds the board: a TCP port or a pseudo-terminal.
#pragma once

#include <string>

#include "simulator/boardsim/SimOptions.h"

namespace simulator {

struct Endpoint {
    int listener = -1;  // TCP only
    int line = -1;      // to the host; -1: nobody is connected
    bool isPty = false;
    std::string place;  // for people: "localhost port 3001", "/dev/pts/4"
    std::string link;   // symbolic link that was made; empty: none
};

// Opens it as the options say. False with a message on stderr.
bool OpenEndpoint(const SimOptions& options, Endpoint* endpoint);

// A host is waiting at the listener: takes it. False if it went away again.
bool AcceptHost(Endpoint& endpoint);

void DropHost(Endpoint& endpoint);

// Closes everything and removes the link.
void CloseEndpoint(Endpoint& endpoint);

}  // namespace simulator
