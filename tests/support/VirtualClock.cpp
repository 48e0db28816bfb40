#include "tests/support/VirtualClock.h"

void VirtualClock::Sleep(int64_t ms) {
    for (int64_t i = 0; i < ms; ++i) {
        ++now;
        if (onTick) onTick(now);
    }
}
