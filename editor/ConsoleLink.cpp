#include "editor/ConsoleLink.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>

namespace {

constexpr int kPatience = 5000;  // milliseconds for the whole conversation
// Closing at once would meet the console's welcome with a reset, which can cost the words.
constexpr int kStay = 300;  // milliseconds

// The console drops line ends and cuts blanks, so such a name would become another one.
bool CanBeSent(const QString& path) {
    const bool plain =
        std::none_of(path.cbegin(), path.cend(), [](QChar c) { return c.unicode() < 32; });
    return plain && path == path.trimmed();
}

}  // namespace

void SendToConsole(QObject* owner, quint16 port, const QString& path,
                   const std::function<void(const QString& sentence)>& report) {
    if (!CanBeSent(path)) return report("The console cannot take a file of this name.");
    auto* socket = new QTcpSocket(owner);
    QTimer::singleShot(kPatience, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::connected, socket, [=] {
        socket->write("/load " + path.toUtf8() + '\r');
        QTimer::singleShot(kStay, socket, &QTcpSocket::disconnectFromHost);
        report("Sent to the console: " + path);
    });
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [=] { socket->readAll(); });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::errorOccurred, socket, [=] {
        if (socket->state() != QAbstractSocket::ConnectedState) {
            report(QString("No console on port %1: is it running?").arg(port));
        }
        socket->deleteLater();
    });
    socket->connectToHost(QHostAddress::LocalHost, port);
}
