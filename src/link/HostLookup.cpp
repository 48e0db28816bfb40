#include "link/HostLookup.h"

#include <arpa/inet.h>
#include <netdb.h>

#include <chrono>
#include <future>
#include <thread>
#include <utility>

#include "base/Pacing.h"

namespace {

constexpr std::chrono::milliseconds kLookupStep(10);

// The first address of a name, INADDR_NONE for none. The C library asks one server after the
// other and cannot be stopped.
in_addr AddressOf(const QByteArray& host) {
    addrinfo wanted = {};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.constData(), nullptr, &wanted, &found) != 0) return {INADDR_NONE};
    const in_addr address = reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr;
    freeaddrinfo(found);
    return address;
}

}  // namespace

bool LookUpHost(const QByteArray& host, in_addr& address) {
    if (host.size() > kLongestHostName) return false;
    address.s_addr = inet_addr(host.constData());
    if (address.s_addr != INADDR_NONE) return true;
    // On a thread of its own; one that nobody waits for any more ends by itself.
    std::packaged_task<in_addr()> lookup([host] { return AddressOf(host); });
    std::future<in_addr> found = lookup.get_future();
    std::thread(std::move(lookup)).detach();
    while (found.wait_for(kLookupStep) != std::future_status::ready) {
        if (LeaveRequested()) return false;
        AwaitReady(0, 0, 0);
    }
    address = found.get();
    return address.s_addr != INADDR_NONE;
}
