// The TCP client: IPv4, connecting, and the two byte operations on a connected socket, which
// never wait for arriving bytes. Any thread; on the interface thread the toolkit is served
// where they wait, and a request to leave ends the wait.
#pragma once

#include <QString>
#include <cstdint>

// Opens a connection to an IPv4 address or a host name: the descriptor, or 0. Waits until
// the kernel gives up or the program is to leave. The port is not checked; its low 16 bits
// count.
int ConnectTcpClient(const QString& host, int port);

// Closes a descriptor of ConnectTcpClient; below 1 does nothing.
void CloseTcpClient(int fd);

// Sends all, and waits while the peer does not take it: the count that was taken before the
// link failed or the program was to leave, or -1 for none of it. A peer that has gone raises
// no signal.
int64_t SendTcpBytes(int fd, const void* buffer, int64_t count);

// What waits on the socket, at most `maximum` bytes. 0 for nothing and for a peer that
// has closed, which is not told from a quiet line; -1 for a failing recv(2).
int64_t ReceiveTcpBytes(int fd, void* buffer, int64_t maximum);
