#include "base/Pacing.h"

#include <poll.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <climits>
#include <ctime>
#include <iterator>
#include <thread>

#include "base/WorkerThread.h"

namespace {

constexpr short kGone = POLLHUP | POLLRDHUP | POLLERR | POLLNVAL;
// A window that is uncovered stands unpainted for so long at the most.
constexpr int64_t kServiceStep = 20;  // milliseconds

short Poll(int fd, short events, int64_t ms) {
    pollfd watched[] = {{fd > 0 ? fd : -1, events, 0}, {StopDescriptor(), POLLIN, 0}};
    poll(watched, std::size(watched), static_cast<int>(ms));
    return watched[0].revents;
}

class KernelClock : public Clock {
  public:
    void Sleep(int64_t ms) override {
        const int64_t end = Now() + ms;
        for (int64_t left = ms; left > 0 && !WorkerIsStopped(); left = end - Now())
            Poll(0, 0, std::min<int64_t>(left, INT_MAX));
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
    bool Await(int fd, short events, int64_t ms) override { return Poll(fd, events, ms) != 0; }
};

KernelClock kernelClock;
Clock* currentClock = &kernelClock;
void (*waitService)() = nullptr;
std::thread::id servedThread;
std::atomic<bool> leaveRequested{false};

bool IsServed() {
    return waitService && std::this_thread::get_id() == servedThread;
}

}  // namespace

bool Clock::Await(int fd, short events, int64_t ms) {
    if (fd > 0 && Poll(fd, events, 0) != 0) return true;
    Sleep(fd > 0 ? std::min<int64_t>(ms, 1) : ms);
    return false;
}

// The end is taken first: what the service takes is part of the wait.
void SleepMs(int64_t ms) {
    if (!IsServed()) return currentClock->Sleep(ms);
    const int64_t end = NowMs() + ms;
    waitService();
    for (int64_t left = ms; left > 0 && !leaveRequested; left = end - NowMs()) {
        currentClock->Sleep(std::min(left, kServiceStep));
        waitService();
    }
}

bool AwaitReady(int fd, short events, int64_t ms) {
    const int64_t end = NowMs() + ms;
    for (int64_t left = ms;; left = end - NowMs()) {
        const bool served = IsServed();
        if (served) waitService();
        left = std::max<int64_t>(left, 0);
        if (currentClock->Await(fd, events, served ? std::min(left, kServiceStep) : left))
            return true;
        if (NowMs() >= end || WorkerIsStopped()) return false;
    }
}

// A line that is gone is always ready and has nothing to read.
void AwaitInput(int fd, int64_t ms) {
    if (AwaitReady(fd, POLLIN | POLLRDHUP, ms) && Poll(fd, POLLIN | POLLRDHUP, 0) & kGone) {
        currentClock->Sleep(1);
    }
}

bool LeaveRequested() {
    return leaveRequested;
}

void RequestLeave(bool leave) {
    leaveRequested = leave;
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

void SetWaitService(void (*procedure)()) {
    servedThread = std::this_thread::get_id();
    waitService = procedure;
}
