#include "link/LinkPrimitives.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "base/Choices.h"
#include "base/LineEnding.h"
#include "base/Pacing.h"
#include "base/WorkerThread.h"
#include "link/Connection.h"
#include "link/LinkSettings.h"
#include "link/SerialPort.h"
#include "link/Telnet.h"
#include "terminal/screen/TerminalScreen.h"

const QString kTimeout = "***TIMEOUT***";

namespace {

// Stages characters of `text` from `next` on into the block's first `room` bytes, with a
// 0 byte behind the last where the block has one left, and moves `next` on.
void StageText(const QString& text, int& next, int room) {
    uint8_t* const block = TxBuffer();
    int staged = 0;
    for (; next < text.size() && staged < room; ++next) {
        const ushort unit = text[next].unicode();
        if (unit < 256) block[staged++] = static_cast<uint8_t>(unit);
    }
    if (staged < LinkBufferSize()) block[staged] = 0;
}

// Where the telnet coding stands. A transfer worker has a place of its own, since what it
// reads besides its replies is no text.
struct TelnetPlace {
    int link = 0;  // number of the TCP link
    TelnetReader reader;
};

thread_local TelnetPlace telnetPlace;

// One read, as text: a character for each byte, up to the first 0 byte. A worker that was
// stopped leaves what comes to others.
QString ReadReply() {
    if (WorkerIsStopped()) return QString();
    uint8_t* const block = RxBuffer();
    const int64_t read = ReceiveBytes(block, std::min(kReplyRead, LinkBufferSize()));
    const int64_t count = TakeOffTelnet(block, read);
    if (count < 1) return QString();
    const char* bytes = reinterpret_cast<const char*>(block);
    return QString::fromLatin1(bytes, static_cast<int>(strnlen(bytes, count)));
}

// Reads until the reply holds `terminator`. It is looked for in what is new alone; the
// text before was looked through when it came.
QString CollectReply(QChar terminator) {
    QString reply;
    for (int step = 1; step <= kReplySteps; ++step) {
        SleepMs(kReplyStepMs);
        const QString piece = ReadReply();
        reply += piece;
        if (piece.contains(terminator)) return step > kLastGoodStep ? kTimeout : reply;
    }
    return kTimeout;
}

void CutLineEndCharacter(QString& text) {
    if (text.endsWith('\r') || text.endsWith('\n')) text.chop(1);
}

}  // namespace

int64_t SendBytes(const void* buffer, int64_t count) {
    if (linkStatus.deviceOnTcpip) {
        const DescriptorUse use(linkStatus.netLink);
        return use.fd > 0 ? SendTcpBytes(use.fd, buffer, count) : -1;
    }
    if (!SerialLinkIsOpen()) return -1;
    return WriteSerialBytes(buffer, static_cast<int>(std::min<int64_t>(count, INT_MAX)));
}

int LinkRoom() {
    if (linkStatus.deviceOnTcpip) return TakesBytes(linkStatus.netLink) ? INT_MAX : 0;
    if (!SerialLinkIsOpen()) return INT_MAX;
    return SerialTakesBytes() ? kSerialRoom : 0;
}

int64_t SendText(const QString& text) {
    int64_t taken = 0;
    int next = 0;
    for (int left = text.size(); left > 0;) {
        const int piece = std::min(left, LinkBufferSize());
        StageText(text, next, piece);
        const int64_t result = SendBytes(TxBuffer(), piece);
        if (result != piece) return taken > 0 ? taken + std::max<int64_t>(result, 0) : result;
        taken += result;
        left -= piece;
    }
    return taken;
}

int32_t SendByte(int64_t value) {
    if (!SerialLinkIsOpen() && linkStatus.netLink == 0) return -1;
    if (value < 1) return 0;
    const uint8_t block[2] = {static_cast<uint8_t>(value), 0};
    return static_cast<int32_t>(SendBytes(block, 1));
}

int64_t ReceiveBytes(void* buffer, int64_t maximum) {
    if (linkStatus.deviceOnTcpip) {
        const DescriptorUse use(linkStatus.netLink);
        return use.fd > 0 ? ReceiveTcpBytes(use.fd, buffer, maximum) : -1;
    }
    if (!SerialLinkIsOpen()) return -1;
    const int waiting = SerialBytesAvailable();
    if (waiting == 0) return 0;
    return ReadSerialBytes(buffer, static_cast<int>(std::min<int64_t>(waiting, maximum)));
}

int64_t TakeOffTelnet(uint8_t* bytes, int64_t count) {
    if (!choices.telnetLineEnds || !linkStatus.deviceOnTcpip || count < 1) return count;
    if (telnetPlace.link != linkStatus.netLinks) telnetPlace = {linkStatus.netLinks, {}};
    QByteArray refusals;
    const int64_t left = ReadTelnet(telnetPlace.reader, bytes, count, refusals);
    // A peer that does not read must not hold the program up for them.
    if (!refusals.isEmpty() && LinkRoom() > 0) SendBytes(refusals.constData(), refusals.size());
    return left;
}

const SharedDescriptor& LinkDescriptor() {
    return linkStatus.deviceOnTcpip ? linkStatus.netLink : SerialDescriptor();
}

int LargestRead() {
    return linkStatus.deviceOnTcpip ? LinkBufferSize() : std::min(LinkBufferSize(), kSerialQueue);
}

void AwaitBytes(int64_t ms) {
    const DescriptorUse use(LinkDescriptor());
    AwaitInput(use.fd, ms);
}

QString SendAndWait(const QString& text, int64_t delay) {
    if (delay == 0) delay = linkSettings.lineDelay;
    SendText(text);
    if (delay > 0) {
        SleepMs(delay);
        return ReadReply();
    }
    return CollectReply(delay == kWaitForLine ? '\n' : '>');
}

QString SendCommandLine(const QString& text, bool appendEol) {
    QString reply = SendAndWait(appendEol ? text + lineEnding.bytes : text, linkSettings.lineDelay);
    CutLineEndCharacter(reply);
    CutLineEndCharacter(reply);
    TerminalPrintLine(reply);
    return QString();
}
