// A virtual clock for a worker, whether its body runs on the test's thread or on its own.
// The test's sleeps move it on, millisecond by millisecond, and at each the worker has its
// turn: time stands still until it sleeps again, waits for the loop or has ended. So
// nothing depends on how the kernel shares out the processors.
#pragma once

#include <unistd.h>

#include "tests/support/VirtualClock.h"
#include "ui/events/InterfaceThread.h"
#include "xmodem/XmodemJob.h"

class TurnsClock : public VirtualClock {
  public:
    void Sleep(int64_t ms) override {
        if (!OnInterfaceThread()) return WorkerSleeps(ms);
        for (; ms > 0; --ms) {
            VirtualClock::Sleep(1);
            while (WorkerIsReady()) usleep(kPauseUs);
        }
    }

  private:
    static constexpr int kPauseUs = 20;

    void WorkerSleeps(int64_t ms) {
        for (wake = now + ms; now < wake && !WorkerIsStopped();) usleep(kPauseUs);
    }
    bool WorkerIsReady() const {
        bool runs = false;
        for (const Direction direction : {Direction::kSend, Direction::kReceive}) {
            const XmodemJob& job = JobOf(direction);
            if (WorkerRuns(job.thread) && job.thread.stopped) return true;
            runs = runs || (WorkerRuns(job.thread) && !job.statusWaits);
        }
        return runs && now >= wake;
    }

    std::atomic<int64_t> wake{0};
};
