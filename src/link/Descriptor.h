// Descriptors that the link keeps open. The interface thread opens and closes them;
// transfer workers read and write them meanwhile, and no byte operation takes a lock.
#pragma once

#include <atomic>

// The lowest number that a link's descriptor may have: "no link" is told by 0, and
// below this a library's stray message would go to the device.
constexpr int kLowestLinkDescriptor = 3;

// How often ReplaceDescriptor lets other threads run before it closes all the same: a
// worker that was killed inside an operation never comes out of it.
constexpr int kMostYieldsForUsers = 1000000;

// `fd` itself, or, when it stands below kLowestLinkDescriptor because the program was
// started with a standard stream closed, a duplicate above, with `fd` closed. 0 for an
// `fd` below 0 and when no duplicate can be had. Any thread.
int AboveStandardStreams(int fd);

// A descriptor that one thread replaces and any thread uses. It reads as its number.
struct SharedDescriptor {
    std::atomic<int> fd{0};             // 0 for none
    mutable std::atomic<int> users{0};  // byte operations on it at this moment

    operator int() const { return fd; }
};

// Holds a descriptor open for one byte operation. Any thread.
class DescriptorUse {
  public:
    explicit DescriptorUse(const SharedDescriptor& used);
    ~DescriptorUse() { --users; }
    DescriptorUse(const DescriptorUse&) = delete;
    DescriptorUse& operator=(const DescriptorUse&) = delete;

    int fd = 0;  // 0 for none

  private:
    std::atomic<int>& users;
};

// Whether a write would be taken at once. True as well for no descriptor and for a failed
// one: what is written there is lost, and there is nothing to wait for. Any thread.
bool TakesBytes(const SharedDescriptor& descriptor);

// Puts `fd` (0 for none) in the place of the earlier descriptor, then closes that one.
// A socket is shut down first, which ends a send(2) that waits for the peer; the number
// is given back only when no other thread is inside an operation on it, since it could
// name another file by then. One thread.
void ReplaceDescriptor(SharedDescriptor& descriptor, int fd);
