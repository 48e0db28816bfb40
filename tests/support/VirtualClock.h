// A clock that moves when told. A sleep takes no time; it moves the clock on in steps of
// one millisecond and lets the far end act at each.
#pragma once

#include <atomic>
#include <functional>

#include "base/Pacing.h"

class VirtualClock : public Clock {
  public:
    VirtualClock() { InstallClock(this); }
    ~VirtualClock() override { InstallClock(nullptr); }

    void Sleep(int64_t ms) override {
        for (; ms > 0; --ms) {
            ++now;
            if (onTick) onTick(now);
        }
    }
    int64_t Now() override { return now; }
    // 2026-03-04 05:06:07 at the start.
    int64_t LocalSeconds() override { return 1772600767 + now / 1000; }

    // Called after each millisecond with the new time; the far end reads its descriptor,
    // acts and writes.
    std::function<void(int64_t now)> onTick;

  protected:
    std::atomic<int64_t> now{0};
};
