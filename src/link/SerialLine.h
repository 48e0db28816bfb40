// Opening a serial device and programming its line by termios(3). The `B` codes and the
// flag word are Linux's.
#pragma once

#include <QString>
#include <cstdint>

// The highest speed that is set by its own code.
constexpr int64_t kHighestPlainBaud = 115200;

// Opens the device non-blocking, which it stays, and programs it raw: 8 data bits, no
// parity, 1 stop bit, no flow control. Whether the line took the setting is not looked
// at. The descriptor, or 0 when the device cannot be opened or the speed has no code;
// an unknown speed fails before the device is touched. Any thread.
int OpenLine(const QString& path, int64_t baud);

// Takes a line that runs at kHighestPlainBaud to a speed above it. A speed without a
// code leaves it as it is, and nothing tells.
void RaiseLineSpeed(int fd, int64_t baud);
