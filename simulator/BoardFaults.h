// Troubles that a simulated board can be asked for. All are drawn from the seed, so a run
// can be repeated. The zero of each field means that the trouble is absent.
#pragma once

#include <cstdint>
#include <string>

namespace simulator {

// Bytes that come by themselves: a flood of text, a storm of CAN or NAK.
struct BoardStorm {
    std::string pattern;  // sent whole each time; empty: no storm
    int intervalMs = 10;  // from one to the next, at least 1
    bool inXmodemOnly = false;
};

struct BoardFaults {
    int seed = 1;
    int lostOutPerMille = 0;  // output bytes that vanish, of 1000
    int lostInPerMille = 0;   // input bytes that vanish
    int garbagePerMille = 0;  // output bytes that change
    int delayMs = 0;          // every output byte comes this much later
    bool noEcho = false;      // typed characters don't come back
    bool silent = false;      // nothing is ever sent
    int cutAfterBytes = 0;    // the link is cut when so many bytes were sent
    BoardStorm storm;
};

}  // namespace simulator
