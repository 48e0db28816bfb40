// Following what becomes of the link: a pulled cable, and a peer that closes. Interface
// thread.
#pragma once

#include <cstdint>

constexpr int64_t kRetryInterval = 1000;  // milliseconds between two tries to open a port

// One look, of a user who chose so: a link that has ended is disconnected as by the button,
// and a serial port that was lost so is opened again once it can be. Tries that fail say
// nothing, and end when the user has gone on to another port or another link.
void FollowCable();
