// Descriptors that the link keeps open. The interface thread opens and closes them;
// transfer workers read and write them meanwhile.
#pragma once

#include <atomic>
#include <memory>

// The lowest number that a link's descriptor may have: "no link" is told by 0, and
// below this a library's stray message would go to the device.
constexpr int kLowestLinkDescriptor = 3;

// `fd` itself, or, when it stands below kLowestLinkDescriptor because the program was
// started with a standard stream closed, a duplicate above, with `fd` closed. 0 for an
// `fd` below 0 and when no duplicate can be had. Any thread.
int AboveStandardStreams(int fd);

// An open descriptor, closed when the last who holds it lets go.
struct OpenDescriptor {
    explicit OpenDescriptor(int number) : fd(number) {}
    ~OpenDescriptor();
    OpenDescriptor(const OpenDescriptor&) = delete;
    OpenDescriptor& operator=(const OpenDescriptor&) = delete;

    const int fd;
};
using HeldDescriptor = std::shared_ptr<const OpenDescriptor>;  // null for none

// A descriptor that one thread replaces and any thread uses. It reads as its number.
class SharedDescriptor {
  public:
    HeldDescriptor Hold() const { return std::atomic_load(&held); }
    operator int() const;  // 0 for none
    // Puts another in its place, null for none, and gives the earlier one.
    HeldDescriptor Exchange(HeldDescriptor next);

  private:
    HeldDescriptor held;
};

// Holds a descriptor open for one byte operation. Any thread.
struct DescriptorUse {
    explicit DescriptorUse(const SharedDescriptor& used)
        : held(used.Hold()), fd(held ? held->fd : 0) {}

    const HeldDescriptor held;
    const int fd;  // 0 for none
};

// Whether a write would be taken at once. True as well for no descriptor and for a failed
// one: what is written there is lost, and there is nothing to wait for. Any thread.
bool TakesBytes(const SharedDescriptor& descriptor);

// Whether nothing will ever come on it again: the device is gone, or the peer has closed,
// and what came before has been read. False for no descriptor. Any thread.
bool HasEnded(const SharedDescriptor& descriptor);

// Puts `fd` (0 for none) in the place of the earlier descriptor. An earlier socket is shut
// down, which ends a send that waits for the peer, and its number is given back when no
// thread is inside an operation on it any more: it could name another file before. One thread.
void ReplaceDescriptor(SharedDescriptor& descriptor, int fd);
