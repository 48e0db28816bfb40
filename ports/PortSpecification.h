// The device specification of a port, as the console's preset or a source's first line takes it.
#pragma once

#include <QString>

#include "ports/SerialPorts.h"

// Which board is meant is read from the USB numbers; behind an adapter, or with none, the line is
// one for a PicoMite. `path` is the port's own or its lasting one. Empty for a port outside /dev/
// or with a name that the port word cannot carry: blank, ":", "\" and "'" end it.
QString PortSpecification(const SerialPort& port, const QString& path);

// True when the USB numbers are a board's own, not those of an adapter, or of anything else.
bool BoardIsKnown(const SerialPort& port);
