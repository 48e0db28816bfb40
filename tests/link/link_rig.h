// What the tests of the link stand on.
#pragma once

#include <netinet/tcp.h>

#include "link/LinkWatch.h"
#include "link/SendListing.h"
#include "link/Servers.h"
#include "tests/support/Chosen.h"
#include "tests/support/FarEnd.h"
#include "tests/support/StartState.h"
#include "ui/events/CurrentEvent.h"
#include "ui/gadgets/ButtonGadget.h"

inline int SocketOption(int fd, int level, int name) {
    int value = 0;
    socklen_t size = sizeof value;
    getsockopt(fd, level, name, &value, &size);
    return value;
}
