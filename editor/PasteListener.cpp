#include "editor/PasteListener.h"

#include <QTcpSocket>
#include <utility>

namespace {

constexpr int kRetry = 1000;         // milliseconds
constexpr int kPatience = 2000;      // milliseconds that a client may take
constexpr int kMostClients = 8;      // at a time
constexpr int kLongestCommand = 64;  // bytes
const char kCommand[] = "/paste";

}  // namespace

PasteListener::PasteListener(quint16 wanted, std::function<void()> act)
    : port(wanted), onPaste(std::move(act)) {
    QObject::connect(&server, &QTcpServer::newConnection, &server, [this] { TakeClient(); });
    QObject::connect(&retry, &QTimer::timeout, &server, [this] { Listen(); });
    retry.setInterval(kRetry);
    Listen();
}

void PasteListener::Listen() {
    if (server.listen(QHostAddress::LocalHost, port)) return retry.stop();
    retry.start();
}

void PasteListener::TakeClient() {
    QTcpSocket* client = server.nextPendingConnection();
    if (!client) return;
    const bool full = server.findChildren<QTcpSocket*>().size() > kMostClients;
    if (full) return client->deleteLater();
    client->setReadBufferSize(kLongestCommand);
    QTimer::singleShot(kPatience, client, &QObject::deleteLater);
    QObject::connect(client, &QTcpSocket::readyRead, client, [=] { TakeBytes(client); });
    QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
}

// The command may come in pieces; it is whole when a line end is there. One to a client.
void PasteListener::TakeBytes(QTcpSocket* client) {
    const QByteArray bytes = client->peek(kLongestCommand);
    const bool ended = bytes.contains('\r') || bytes.contains('\n');
    if (!ended && bytes.size() < kLongestCommand) return;
    client->disconnect();
    client->abort();
    client->deleteLater();
    if (bytes.simplified().toLower() == kCommand) onPaste();
}
