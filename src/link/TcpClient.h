// The TCP client: IPv4, blocking connect(2), and the two byte operations on a connected
// socket, which never wait for arriving bytes. Interface thread, but for the byte
// operations.
#pragma once

#include <QString>
#include <cstdint>

// A host name of more bytes than this is not looked up (RFC 1035 ends at 253).
constexpr int kLongestHostName = 255;

// Opens a connection to an IPv4 address or a host name: the descriptor, or 0. Blocks
// until the kernel gives up, with what was painted before on the screen. The port is
// not checked; its low 16 bits count.
int ConnectTcpClient(const QString& host, int port);

// Closes a descriptor of ConnectTcpClient; below 1 does nothing. Any thread.
void CloseTcpClient(int fd);

// One send(2): its result. A peer that has gone raises no signal. Any thread.
int64_t SendTcpBytes(int fd, const void* buffer, int64_t count);

// What waits on the socket, at most `maximum` bytes. 0 for nothing and for a peer that
// has closed, which is not told from a quiet line; -1 for a failing recv(2). Any thread.
int64_t ReceiveTcpBytes(int fd, void* buffer, int64_t maximum);
