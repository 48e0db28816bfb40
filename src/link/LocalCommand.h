// A command to another program of this machine, by its local port. Interface thread.
#pragma once

#include <QString>

// Connects, sends the command as UTF-8, waits 20 ms and closes. Silent when nobody listens.
void SendLocalCommand(int port, const QString& command);
