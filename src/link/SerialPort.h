// The one serial port of the program: 8 data bits, no parity, 1 stop bit, no flow
// control. Plain termios(3) on a non-blocking descriptor. The interface thread opens and
// closes it; a transfer worker reads and writes it while it lives.
#pragma once

#include <QString>
#include <cstdint>

#include "link/Descriptor.h"

// Bytes that Linux holds of a serial line until they are read; what comes then waits in the
// driver. n_tty.c
constexpr int kSerialQueue = 4095;

// Opens and programs the port. The two buffer sizes are accepted and have no effect. The
// descriptor, or 0 on failure.
int OpenSerialLink(const QString& path, int64_t baud, int64_t inBufferSize, int64_t outBufferSize);
// The port's descriptor.
const SharedDescriptor& SerialDescriptor();
// Whether the link object exists; says nothing on the state of the hardware.
bool SerialLinkIsOpen();
// Bytes that wait; 0 for none, for no link, and for a failing ioctl(2).
int SerialBytesAvailable();
// One read(2) and one write(2). 0 for none, for an error, and for no link.
int ReadSerialBytes(void* buffer, int count);
int WriteSerialBytes(const void* buffer, int count);
// Whether a write of some hundred bytes would be taken whole; true for no link. Any thread.
bool SerialTakesBytes();
void CloseSerialLink();
// Sets or clears DTR; true when the line then reads as asked.
bool SetSerialDtr(bool on);
// Opens the current port at 1200 baud, which sends such a board into its boot loader.
void SerialTouch1200();
