// What the tests of the link stand on.
#pragma once

#include <gtest/gtest.h>
#include <netinet/tcp.h>

#include "link/LinkWatch.h"
#include "link/SendListing.h"
#include "link/Servers.h"
#include "tests/support/Chosen.h"
#include "tests/support/FarEnd.h"
#include "tests/support/LocalTools.h"
#include "tests/support/StartState.h"
#include "tests/support/VirtualClock.h"
#include "ui/events/CurrentEvent.h"
#include "ui/gadgets/ButtonGadget.h"
#include "ui/windows/Clipboard.h"
#include "ui/windows/Windows.h"

inline int SocketOption(int fd, int level, int name) {
    int value = 0;
    socklen_t size = sizeof value;
    getsockopt(fd, level, name, &value, &size);
    return value;
}
