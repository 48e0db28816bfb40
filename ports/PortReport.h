// What kwports says of one port.
#pragma once

#include <QString>
#include <QStringList>

#include "ports/SerialPorts.h"

// Lines of text: the port, what it is, whether it may be opened, who holds it, and specifications
// to paste. `access` is a sentence, `holders` the names of processes.
QString PortReport(const SerialPort& port, const QString& access, const QStringList& holders);
