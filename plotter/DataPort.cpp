#include "plotter/DataPort.h"

#include <utility>

namespace {

constexpr int kWatch = 1000;             // milliseconds from a look to the next, and to a new try
constexpr int kConnectTime = 5000;       // milliseconds that a try may take
constexpr int kQuiet = 2000;             // milliseconds after which silence is told
constexpr int kMidLine = 500;            // milliseconds; what comes sooner had begun before
constexpr qint64 kFirstPatience = 5000;  // milliseconds
constexpr qint64 kMostPatience = 600000;
constexpr qint64 kBuffer = 256 * 1024;  // bytes; beyond that the console has to wait

const char kNothing[] =
    "Connected to %1, but nothing comes: choose Monitor in the console's menu Mode, and run a "
    "program that prints";

}  // namespace

DataPort::DataPort(QString wanted, quint16 number, BytesHook bytes, BreakHook broken)
    : host(std::move(wanted)), port(number), onBytes(std::move(bytes)), onBreak(std::move(broken)) {
    socket.setReadBufferSize(kBuffer);
    QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [this] { TakeBytes(); });
    QObject::connect(&socket, &QTcpSocket::connected, &socket, [this] {
        failed = cameAny = false;
        sinceChange.start();
    });
    QObject::connect(&socket, &QTcpSocket::errorOccurred, &socket, [this] { failed = true; });
    QObject::connect(&watch, &QTimer::timeout, &socket, [this] { Watch(); });
    watch.setInterval(kWatch);
}

void DataPort::Open() {
    patience = kFirstPatience;
    watch.start();
    Watch();
}

void DataPort::Close() {
    watch.stop();
    socket.abort();
    failed = false;
}

void DataPort::TakeBytes() {
    if (!cameAny) onBreak(sinceChange.elapsed() < kMidLine);
    cameAny = true;
    sinceBytes.start();
    onBytes(socket.readAll());
}

// When another client of the port leaves, the console sends the board's bytes to nobody until one
// connects. So a silence behind bytes ends in a new connection, and as boards are silent for
// reasons of their own, each takes twice as long as the one before. The old connection is gone for
// a second by then: the console must not see it go behind the new one.
void DataPort::Watch() {
    if (socket.state() == QTcpSocket::ConnectedState) {
        if (!cameAny || sinceBytes.elapsed() < patience) return;
        patience = qMin(2 * patience, kMostPatience);
        return socket.abort();
    }
    const bool tries = socket.state() != QTcpSocket::UnconnectedState;
    if (tries && sinceChange.elapsed() < kConnectTime) return;
    socket.abort();
    sinceChange.start();
    socket.connectToHost(host, port, QIODevice::ReadOnly);
}

QString DataPort::Sentence() const {
    const QString place = QString("%1, port %2").arg(host).arg(port);
    const bool connected = socket.state() == QTcpSocket::ConnectedState;
    if (connected && !cameAny && sinceChange.elapsed() > kQuiet)
        return QString(kNothing).arg(place);
    if (connected && cameAny && sinceBytes.elapsed() > kQuiet)
        return QString("Connected to %1, nothing for %2 s")
            .arg(place)
            .arg(sinceBytes.elapsed() / 1000);
    if (connected) return "Connected to " + place;
    if (failed) return "Nobody answers at " + place + ": start the console";
    return "Calling " + place;
}
