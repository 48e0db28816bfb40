// The serial ports that are there, and what hangs on them.
#pragma once

#include <QString>
#include <vector>

struct SerialPort {
    QString path;              // the device node, links followed: "/dev/ttyACM0"
    QString lastingPath = {};  // a link to it that carries its serial number; empty for none
    QString maker = {};        // these three are empty when the device does not tell them
    QString product = {};
    QString serialNumber = {};
    quint16 vendorId = 0;  // of USB; both 0 for a port that is not on USB
    quint16 productId = 0;
};

// All ports that the system knows, by name.
std::vector<SerialPort> ListSerialPorts();

// The port that the user named: "ttyACM0", a path below any folder, or a link to a port. It need
// not be one of the list, such as a pseudo-terminal. An empty path when there is no such device.
SerialPort NamedSerialPort(const QString& name, const std::vector<SerialPort>& listed);
