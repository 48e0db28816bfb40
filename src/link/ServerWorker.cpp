#include "link/ServerWorker.h"

#include <sys/socket.h>

#include <algorithm>

#include "base/DecodeLinkText.h"
#include "base/Numbers.h"
#include "base/Pacing.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"

namespace {

const char kPlainVideo[] = "\x1b[0m";

struct ServerRow {
    int64_t identity;
    const char* label;   // the blanks align the two first lines
    int64_t startDelay;  // milliseconds; the data line is to come first
};

// clang-format off
const ServerRow serverRows[] = {
    {kDataServerIdentity,    "   Data",  50},
    {kControlServerIdentity, "Control", 100},
};
// clang-format on

const ServerRow& RowOf(const ServerRecord& record) {
    return serverRows[record.identity == kControlServerIdentity];
}

bool StartListening(ServerRecord& record) {
    const ServerRow& row = RowOf(record);
    SleepMs(row.startDelay);
    const bool open = OpenServer(record.sockets, record.port);
    PostServerMessage(record, row.label + (" server on port " + QString::number(record.port)) +
                                  (open ? " started" : " failed"));
    return open;
}

// The new socket's send buffer is empty, so a welcome of any sane length is taken whole.
void Welcome(ServerRecord& record, int client) {
    const bool isGreeted = terminalMode == kModeTerminal;  // as it is when the client comes
    PostServerMessage(record, kPlainVideo + ("connected- " + ClientAddress(client)));
    if (!isGreeted) return;
    const QByteArray welcome = (linkSettings.welcomeMessage + "\r\n").toUtf8();
    send(client, welcome.constData(), static_cast<size_t>(welcome.size()), MSG_NOSIGNAL);
}

// How much of a chunk can be taken. A board that does not read, or a line slower than the
// tool, holds the tool back: its bytes wait in its socket, and neither are any lost nor does
// the interface thread wait in a send.
size_t RoomForChunk(const ServerRecord& record) {
    const size_t whole = record.buffer.size();
    return record.identity == kDataServerIdentity ? std::min<size_t>(LinkRoom(), whole) : whole;
}

void TakeChunk(ServerRecord& record, int client, size_t room) {
    record.length = recv(client, record.buffer.data(), room, 0);
    record.text = DecodeLinkText(record.buffer.data(), record.length);
    HandOverChunk(record);
    std::fill(record.buffer.begin(), record.buffer.end(), uint8_t{0});
}

// Whichever client goes, the one of the last event is forgotten: device bytes reach
// nobody until the next event, even while another client is connected. This is meant.
void DropClient(ServerRecord& record) {
    record.client.Exchange(nullptr);
    if (linkSettings.debugMode) TerminalPrintLine(kPlainVideo + QString("Net Disconnected"));
}

void TakeTurn(ServerRecord& record) {
    const size_t room = RoomForChunk(record);
    const ServerEvent event = TakeServerEvent(record.sockets, room > 0);
    if (event.kind == ServerEventKind::kNone) return;
    if (event.kind == ServerEventKind::kClientGone) return DropClient(record);
    record.client.Exchange(event.client);
    if (event.kind == ServerEventKind::kNewClient) return Welcome(record, event.client->fd);
    TakeChunk(record, event.client->fd, room);
}

}  // namespace

void ServerWorker(void* argument) {
    ServerRecord& record = *static_cast<ServerRecord*>(argument);
    if (!StartListening(record)) return;
    while (!WorkerIsStopped()) {
        WaitForServerEvent(record.sockets);
        if (WorkerIsStopped()) break;
        TakeTurn(record);
        SleepMs(kServerPace);
    }
    record.client.Exchange(nullptr);
    CloseServer(record.sockets);
    record.buffer.clear();
    record.buffer.shrink_to_fit();
}
