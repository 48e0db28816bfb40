#include "shell/ServerChunks.h"

#include <QString>
#include <algorithm>
#include <cstring>

#include "base/DecodeLinkText.h"
#include "base/Numbers.h"
#include "base/TextRules.h"
#include "link/LinkPrimitives.h"
#include "link/Servers.h"
#include "shell/Poll.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/VtParser.h"
#include "upload/LoadPath.h"

namespace {

const char kLoadCommand[] = "/load";
constexpr int kLoadLength = sizeof kLoadCommand - 1;
const char kStoreCommand[] = "/store";  // loads without RUN
constexpr int kStoreLength = sizeof kStoreCommand - 1;
const char kReservedCommand[] = "/cmd";  // has no action
constexpr int kReservedLength = sizeof kReservedCommand - 1;

// By way of the staging block, which can be smaller than a chunk. A piece that is not
// taken whole is the last, as if the chunk had gone in one call.
void SendByStagingBlock(const uint8_t* bytes, int64_t count) {
    for (int64_t sent = 0; sent < count;) {
        const int64_t piece = std::min<int64_t>(count - sent, LinkBufferSize());
        memcpy(TxBuffer(), bytes + sent, static_cast<size_t>(piece));
        if (SendBytes(TxBuffer(), piece) != piece) return;
        sent += piece;
    }
}

// What the data client sent, to the device. With no link it is lost without a word, and
// shown all the same. A failed read (length -1) sends nothing.
void HandleDataChunk(const ServerRecord& record) {
    SendByStagingBlock(record.buffer.data(), record.length);
    ShowClientBytes(record.buffer.data(), record.length);
    ReleaseServerWorker(record.identity);
}

void RunCommand(const QString& command) {
    if (command.left(kReservedLength).toLower() == kReservedCommand) return;
    if (command.left(kStoreLength).toLower() == kStoreCommand) {
        return StorePath(TrimBlanks(command.mid(kStoreLength)));
    }
    if (command.left(kLoadLength).toLower() != kLoadCommand) return;
    LoadPath(TrimBlanks(command.mid(kLoadLength)));
}

// Line ends are removed, not split at: two commands in one chunk become one text, whose
// first word rules. The worker goes on before the command is carried out, which can take
// as long as an upload.
void HandleControlChunk(const ServerRecord& record) {
    TerminalPrintLine("Control");
    QString command = DecodeLinkText(record.buffer.data(), record.length);
    command.remove('\r').remove('\n');
    ReleaseServerWorker(record.identity);
    RunCommand(command);
}

}  // namespace

void HandleServerChunk(int64_t identity) {
    const bool data = identity == kDataServerIdentity;
    if (!data && identity != kControlServerIdentity) return TerminalFeed("Other");
    const ServerRecord* record = FindServer(identity);
    if (!record) return;
    if (data) return HandleDataChunk(*record);
    HandleControlChunk(*record);
}
