// Whether this user may open a port, and who has it open.
#pragma once

#include <sys/types.h>

#include <QString>
#include <QStringList>

// What decides who may open a device node.
struct PortRights {
    bool mayOpen = false;       // read and write, for this process
    mode_t mode = 0;            // permission bits of the node
    QString group = {};         // of the node
    bool memberByName = false;  // the user database has this user in that group
    QString user = {};
};

PortRights RightsOn(const QString& path);

// One sentence: that it may be opened, or what to do.
QString AccessSentence(const PortRights& rights);

// Name and number of each process that has the node open: "picocom (4711)". Those of other users
// are seen by root alone (proc(5)).
QStringList HoldersOf(const QString& path);
