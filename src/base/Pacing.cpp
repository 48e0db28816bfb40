#include "base/Pacing.h"

#include <poll.h>

#include <chrono>
#include <ctime>
#include <thread>

namespace {

constexpr short kGone = POLLHUP | POLLRDHUP | POLLERR | POLLNVAL;

class KernelClock : public Clock {
  public:
    void Sleep(int64_t ms) override {
        if (ms > 0) std::this_thread::sleep_for(std::chrono::milliseconds(ms));
    }
    int64_t Now() override {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    }
    int64_t LocalSeconds() override {
        const time_t now = time(nullptr);
        tm civil = {};
        localtime_r(&now, &civil);
        return static_cast<int64_t>(now) + civil.tm_gmtoff;
    }
    // A line that is gone is always ready and has nothing to read.
    void AwaitInput(int fd, int64_t ms) override {
        pollfd ready = {fd > 0 ? fd : -1, POLLIN | POLLRDHUP, 0};
        poll(&ready, 1, static_cast<int>(ms));
        if (ready.revents & kGone) Sleep(1);
    }
};

KernelClock kernelClock;
Clock* currentClock = &kernelClock;
void (*beforeSleep)() = nullptr;
std::thread::id beforeSleepThread;

}  // namespace

void SleepMs(int64_t ms) {
    if (beforeSleep && std::this_thread::get_id() == beforeSleepThread) beforeSleep();
    currentClock->Sleep(ms);
}

void AwaitInput(int fd, int64_t ms) {
    currentClock->AwaitInput(fd, ms);
}

int64_t NowMs() {
    return currentClock->Now();
}

int64_t WallClock() {
    return currentClock->LocalSeconds();
}

void InstallClock(Clock* clock) {
    currentClock = clock ? clock : &kernelClock;
}

void SetBeforeSleep(void (*procedure)()) {
    beforeSleepThread = std::this_thread::get_id();
    beforeSleep = procedure;
}
