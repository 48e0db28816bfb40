// The sockets of one server: the listening one and those of its clients. IPv4 and TCP,
// all non-blocking. The server's worker, unless said otherwise.
#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "link/Descriptor.h"

// Clients connected to one server at the same time; a further one is let in and closed
// at once. Both servers' together stay well below the usual limit of 1024 descriptors.
constexpr int kMostServerClients = 300;

// Send buffer that a client's socket has at the least, in bytes (the kernel may grant
// less, and by itself has more on a loopback). It is all that is kept for a client that
// does not read: what does not fit is lost to it.
constexpr int kClientSendBuffer = 256 * 1024;

struct ServerSockets {
    int listener = 0;                     // 0 for none
    std::vector<HeldDescriptor> clients;  // in the order in which they came
};

enum class ServerEventKind { kNone, kNewClient, kData, kClientGone };

struct ServerEvent {
    ServerEventKind kind = ServerEventKind::kNone;
    HeldDescriptor client;
};

// Listens on all of the machine's addresses, or on 127.0.0.1 alone. False, with nothing open, when
// the port can not be had: a port that another program holds, or that this one closed a moment ago.
bool OpenServer(ServerSockets& sockets, int64_t port);

// Sleeps until a client comes, sends or goes, or the worker is stopped.
void WaitForServerEvent(const ServerSockets& sockets);

// One event at the most, without waiting: a new client goes before all others, then the
// first in the list that has sent something or has gone. A client that has gone is off
// the list; its descriptor is open until the caller lets go. Without `data`, what was
// sent stays where it is, and its client is passed over.
ServerEvent TakeServerEvent(ServerSockets& sockets, bool data);

// Closes the listening socket and those of all clients.
void CloseServer(ServerSockets& sockets);

// The peer's IPv4 address in dotted decimal.
QString ClientAddress(int client);
