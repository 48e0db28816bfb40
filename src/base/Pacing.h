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
    // Waits until `fd` is ready for one of `events`, those of poll(2), or has failed, at most
    // `ms` milliseconds; with 0 for no descriptor that long. True when it is ready. A virtual
    // clock that is not told better moves on by a millisecond, or the whole time with none.
    virtual bool Await(int fd, short events, int64_t ms);
};

// Waits on the calling thread. Any thread. On the interface thread the toolkit is served
// meanwhile, and a request to leave ends the wait.
void SleepMs(int64_t ms);

// Waits until `fd` (0 for none) is ready for one of `events`, those of poll(2), or has
// failed, at most `ms` milliseconds. True when it is ready. A request to leave does not end
// it: the caller asks for that between two waits. Any thread; the toolkit is served as above.
bool AwaitReady(int fd, short events, int64_t ms);

// True once the user or the system asked the program to end. Whatever blocks then gives up
// at its next step. Any thread.
bool LeaveRequested();
void RequestLeave(bool leave);

// Milliseconds of the monotonic clock. Any thread.
int64_t NowMs();

// Waits for a byte on a descriptor instead of asking for one all the time, and a moment where
// none will ever come. Any thread.
void AwaitInput(int fd, int64_t ms);

// Local civil time in seconds since 1970-01-01 00:00, for FormatDate. Any thread.
int64_t WallClock();

// Puts `clock` in place of the kernel's clock, or the kernel's clock back with
// nullptr. The clock stays the caller's. For tests, before any thread starts.
void InstallClock(Clock* clock);

// The procedure that waits of the registering thread call before and between their steps.
// The interface layer registers the one that serves the toolkit. nullptr for none.
void SetWaitService(void (*procedure)());
