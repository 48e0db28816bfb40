// A clock that moves when told. A sleep takes no time; it moves the clock on in steps of
// one millisecond and lets the far end act at each.
#pragma once

#include <functional>

#include "base/Pacing.h"

class VirtualClock : public Clock {
  public:
    // 2026-03-04 05:06:07 in local civil time, at Now() == 0.
    static constexpr int64_t kStartSeconds = 1772600767;

    VirtualClock() { InstallClock(this); }
    ~VirtualClock() override { InstallClock(nullptr); }

    void Sleep(int64_t ms) override {
        for (; ms > 0; --ms) {
            ++now;
            if (onTick) onTick(now);
        }
    }
    int64_t Now() override { return now; }
    int64_t LocalSeconds() override { return kStartSeconds + now / 1000; }

    // Called after each millisecond with the new time; the far end reads its descriptor,
    // acts and writes.
    std::function<void(int64_t now)> onTick;

  private:
    int64_t now = 0;
};
