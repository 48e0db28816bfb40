// Time as the program sees it. Every wait and every reading of a clock goes through
// here, so that a test can put a virtual clock in its place: a sleep then takes no
// time, and the clock's step drives whatever stands at the other end of the line.
#pragma once

#include <cstdint>

// A clock of its own. The production clock is the kernel's monotonic clock.
class Clock {
  public:
    virtual ~Clock() = default;
    // Lets `ms` milliseconds pass; 0 or less lets none pass.
    virtual void Sleep(int64_t ms) = 0;
    // Milliseconds of a monotonic clock with no stated origin.
    virtual int64_t Now() = 0;
    // Seconds since 1970-01-01 00:00 in local civil time (no zone applied on top).
    virtual int64_t LocalSeconds() = 0;
    // Waits until `fd` can be read, at most `ms` milliseconds, and a moment when it never
    // will be; with 0 for no descriptor that long. A virtual clock moves on by a millisecond.
    virtual void AwaitInput(int, int64_t ms) { Sleep(ms > 0 ? 1 : 0); }
};

// Waits on the calling thread. Any thread. On the interface thread what was painted
// before the wait is brought to the screen first.
void SleepMs(int64_t ms);

// Milliseconds of the monotonic clock. Any thread.
int64_t NowMs();

// Waits for a byte on a descriptor instead of asking for one all the time; see Clock. Any
// thread.
void AwaitInput(int fd, int64_t ms);

// Local civil time in seconds since 1970-01-01 00:00, for FormatDate. Any thread.
int64_t WallClock();

// Puts `clock` in place of the kernel's clock, or the kernel's clock back with
// nullptr. The clock stays the caller's. For tests, before any thread starts.
void InstallClock(Clock* clock);

// The procedure that SleepMs calls first on the thread that registered it. The
// interface layer registers the one that shows pending painting. nullptr for none.
void SetBeforeSleep(void (*procedure)());
