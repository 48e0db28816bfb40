// The way to the console: its control port on this machine.
#pragma once

#include <QString>
#include <functional>

class QObject;

// Asks the console to load a file. Returns at once; `report` gets a sentence for the user
// when it is known how it went, unless `owner` is gone by then. The console gives no
// answer: that it took the words is all there is to know.
void SendToConsole(QObject* owner, quint16 port, const QString& path,
                   const std::function<void(const QString& sentence)>& report);
