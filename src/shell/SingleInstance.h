// One program at a time. A second start hands its command line to the first and ends.
#pragma once

#include <QString>

// Counts the running processes whose first argument holds `executable`, this one
// included, by looking through /proc. A process started through a relative path or a
// link is not counted. 0 when /proc can't be read.
int CountOwnProcesses(const QString& executable);

// Sends "/load " and the command line to the control port of the first instance, which
// must listen on `port` of this machine; silent when nothing does. Waits 20 ms at its
// end.
void HandOver(const QString& commandLine, int port);
