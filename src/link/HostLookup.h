// The address of a host.
#pragma once

#include <netinet/in.h>

#include <QByteArray>

// A host name of more bytes than this is not looked up (RFC 1035 ends at 253).
constexpr int kLongestHostName = 255;

// Reads an IPv4 address, or looks a name up, which can take seconds where a name server does
// not answer. False when there is none, and when the program is to leave meanwhile. Any
// thread; on the interface thread the toolkit is served.
bool LookUpHost(const QByteArray& host, in_addr& address);
