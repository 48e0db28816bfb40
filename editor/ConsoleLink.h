// The way to the console: its local ports on this machine.
#pragma once

#include <QByteArray>
#include <functional>

class QObject;
class QString;

// Sends words to a port. Returns at once; `report` gets whether the console took them when it
// is known, unless `owner` is gone by then. The console gives no answer: that it took the
// words is all there is to know.
void SendToConsole(QObject* owner, quint16 port, const QByteArray& words,
                   const std::function<void(bool taken)>& report);

// Whether the control port can take a path: it drops line ends and cuts blanks, so some names
// would become others.
bool CanBeSent(const QString& path);
