// EDIT and the CMM2's FILES take the whole screen. The simulated board shows what a user
// would see, but changes nothing: ESC leaves, and F2 of the editor runs the program.
#pragma once

#include <string>
#include <vector>

#include "simulator/KeyDecoder.h"

namespace simulator {

struct Board;

struct FullScreen {
    KeyDecoder keys;
    bool canRun = false;
};

void RunEdit(Board& board);
void RunFileManager(Board& board);

}  // namespace simulator
