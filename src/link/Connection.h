// Which transport is in use, and bringing it up and down. Everything comes from the live
// settings, and everything is told to the user in the terminal and by the two buttons
// that stand on one spot. A pulled cable or a peer that closed leaves the link up until
// DisconnectDevice; see FollowCable. Interface thread.
#pragma once

#include <QString>
#include <atomic>
#include <cstdint>

#include "link/Descriptor.h"
#include "link/TcpClient.h"

// The interface thread writes it. Transfer workers read the fields that are atomic.
struct LinkStatus {
    bool linkConnected = false;              // from a good ConnectDevice until DisconnectDevice
    std::atomic<bool> deviceOnTcpip{false};  // the one thing that chooses the transport
    SharedDescriptor netLink;                // the TCP client's descriptor, 0 for none
    std::atomic<int> netLinks{0};            // TCP links so far
    QString linkLabel;              // "port:speed" or "address:port"; empty for no live link
    bool pollingSuspended = false;  // the poll does not read the link
    bool queueBusy = false;         // the poll does not read the link
    bool quietTerminal = false;     // what the poll reads is thrown away in modes 0 and 4
};

extern const LinkStatus& linkStatus;

// Chooses the transport, in force and as stored in the settings. A link that is up on
// the other one stays open.
void SetDeviceOnTcpip(bool on);
void SetPollingSuspended(bool on);
void SetQueueBusy(bool on);
void SetQuietTerminal(bool on);

// Brings the link up: -1 when it is up on return, whether now or before, 0 otherwise.
// On the serial transport it lets the poll read again (pollingSuspended), and a port
// that is open already keeps its speed. A TCP endpoint that cannot be reached is not
// reported to the user.
int64_t ConnectDevice();
// Brings the serial link up, or says nothing when its port cannot be opened. True when up.
bool ReopenSerialPort();
// Closes whatever is open on either transport, says so even when nothing was, and turns
// the mouse back to local use.
void DisconnectDevice();

// Prints a text alone on a line in reverse video.
void ShowLinkNotice(const QString& text);
