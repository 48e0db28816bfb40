#include "editor/ConsoleLink.h"

#include <QHostAddress>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>

namespace {

constexpr int kPatience = 5000;  // milliseconds for the whole conversation
// Closing at once would meet the console's welcome with a reset, which can cost the words.
constexpr int kStay = 300;  // milliseconds

}  // namespace

void SendToConsole(QObject* owner, quint16 port, const QByteArray& words,
                   const std::function<void(bool taken)>& report) {
    auto* socket = new QTcpSocket(owner);
    QTimer::singleShot(kPatience, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::connected, socket, [=] {
        socket->write(words);
        QTimer::singleShot(kStay, socket, &QTcpSocket::disconnectFromHost);
        report(true);
    });
    QObject::connect(socket, &QTcpSocket::readyRead, socket, [=] { socket->readAll(); });
    QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QTcpSocket::errorOccurred, socket, [=] {
        const bool refused = socket->state() != QAbstractSocket::ConnectedState;
        socket->deleteLater();
        if (refused) report(false);
    });
    socket->connectToHost(QHostAddress::LocalHost, port);
}

bool CanBeSent(const QString& path) {
    const bool plain =
        std::none_of(path.cbegin(), path.cend(), [](QChar c) { return c.unicode() < 32; });
    return plain && path == path.trimmed();
}
