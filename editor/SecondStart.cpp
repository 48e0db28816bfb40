#include "editor/SecondStart.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>
#include <utility>

namespace {

constexpr int kPatience = 3000;        // milliseconds
constexpr int kMostBytes = 64 * 1024;  // of one handing over
const char kTaken = 1;                 // the answer

// False while bytes are missing.
bool ReadPaths(QLocalSocket& client, QStringList& paths) {
    QDataStream stream(&client);
    stream.startTransaction();
    stream >> paths;
    return stream.commitTransaction();
}

}  // namespace

QString MeetingPlace(const QString& settingsFolder) {
    QByteArray all = settingsFolder.toUtf8();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY"}) all += '\n' + qgetenv(name);
    const QByteArray digest = QCryptographicHash::hash(all, QCryptographicHash::Sha1).toHex();
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/kwedit-" +
           digest.left(16);
}

bool HandOver(const QString& meetingPlace, const QStringList& paths) {
    QStringList whole;
    for (const QString& path : paths) whole += QFileInfo(path).absoluteFilePath();
    QLocalSocket socket;
    socket.connectToServer(meetingPlace);
    if (!socket.waitForConnected(kPatience)) return false;
    QDataStream stream(&socket);
    stream << whole;
    return socket.waitForBytesWritten(kPatience) && socket.waitForReadyRead(kPatience) &&
           socket.read(1) == QByteArray(1, kTaken);
}

SecondStart::SecondStart(const QString& meetingPlace,
                         std::function<void(const QStringList& paths)> act)
    : open(std::move(act)) {
    server.setSocketOptions(QLocalServer::UserAccessOption);
    QLocalServer::removeServer(meetingPlace);  // of an editor that is no more: none answered
    server.listen(meetingPlace);
    QObject::connect(&server, &QLocalServer::newConnection, &server, [this] { TakeClient(); });
}

void SecondStart::TakeClient() {
    QLocalSocket* client = server.nextPendingConnection();
    if (!client) return;
    client->setReadBufferSize(kMostBytes);
    QObject::connect(client, &QLocalSocket::disconnected, client, &QObject::deleteLater);
    QObject::connect(client, &QLocalSocket::readyRead, client, [this, client] {
        QStringList paths;
        if (!ReadPaths(*client, paths)) return;
        client->write(&kTaken, 1);
        client->flush();
        open(paths);
    });
}
