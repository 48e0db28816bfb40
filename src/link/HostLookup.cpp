#include "link/HostLookup.h"

#include <arpa/inet.h>
#include <netdb.h>

#include <atomic>
#include <memory>
#include <thread>

#include "base/Pacing.h"

namespace {

constexpr int64_t kLookupStep = 10;  // milliseconds

struct Lookup {
    QByteArray host;
    in_addr address = {};
    std::atomic<bool> done{false};
};

// The C library asks one server after the other and cannot be stopped; a lookup that nobody
// waits for any more ends by itself.
void RunLookup(const std::shared_ptr<Lookup>& lookup) {
    addrinfo wanted = {};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(lookup->host.constData(), nullptr, &wanted, &found) == 0) {
        lookup->address = reinterpret_cast<const sockaddr_in*>(found->ai_addr)->sin_addr;
        freeaddrinfo(found);
    } else {
        lookup->address.s_addr = INADDR_NONE;
    }
    lookup->done = true;
}

}  // namespace

bool LookUpHost(const QByteArray& host, in_addr& address) {
    if (host.size() > kLongestHostName) return false;
    address.s_addr = inet_addr(host.constData());
    if (address.s_addr != INADDR_NONE) return true;
    const auto lookup = std::make_shared<Lookup>();
    lookup->host = host;
    std::thread([lookup] { RunLookup(lookup); }).detach();
    while (!lookup->done) {
        if (LeaveRequested()) return false;
        AwaitReady(0, 0, kLookupStep);
    }
    address = lookup->address;
    return address.s_addr != INADDR_NONE;
}
