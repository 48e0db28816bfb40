#include "xmodem/Send.h"

#include <algorithm>
#include <vector>

#include "base/Pacing.h"
#include "base/WorkerThread.h"
#include "xmodem/Frame.h"
#include "xmodem/PcFile.h"
#include "xmodem/WorkerCalls.h"
#include "xmodem/XmodemJob.h"

namespace {

// Milliseconds.
constexpr int64_t kCommandDelay = 500;
constexpr int64_t kSettleDelay = 500;  // between the command and the first look
constexpr int64_t kHandshakeStep = 100;
constexpr int64_t kHandshakeTime = 3000;
constexpr int64_t kAnswerDelay = 200;  // between a frame and the look for its answer
constexpr int64_t kRetryPause = 50;
constexpr int64_t kBlockTime = 10000;
constexpr int64_t kCloseStep = 500;
constexpr int64_t kCloseTime = 5000;       // for the answer to one EOT
constexpr int64_t kEmptyLineDelay = 1200;  // before what is left on the line is dropped

constexpr int kMostTries = 29;    // looks for the device's request
constexpr int kMostRetries = 19;  // of one block
constexpr int kMostEots = 4;
constexpr int kCancelBytes = 5;
constexpr int kBlocksPerStatus = 10;

struct Sender {
    explicit Sender(XmodemJob& shared) : job(shared) {}

    XmodemJob& job;
    std::vector<uint8_t> image;  // the file, and zeros for its last block
    int64_t blocks = 0;          // of the file; 0 for an empty one
    int64_t sent = 0;            // number of the block under way
    bool useCrc = false;
    uint8_t frame[kWorkerBlock] = {};
    uint8_t reply[kWorkerBlock] = {};  // what the last read brought, over what was there
    int count = 0;                     // bytes that it brought; below 0 for no link
};

void Read(Sender& s) {
    s.count = WorkerTake(s.reply);
}

// A file that can't be opened goes out as zeros. False for one that is too large.
bool LoadImage(Sender& s) {
    const int64_t size = PcFileSize(s.job.firstName);
    s.blocks = (size + kShortBlock - 1) / kShortBlock;
    if (size <= kLargestSentFile)
        s.image = ReadFileImage(s.job.firstName, size, size + kShortBlock);
    WorkerPrint("Blocks: " + QString::number(s.blocks));
    return !s.image.empty();
}

QString PlainCharacters(const QString& text) {
    QString plain;
    for (const QChar ch : text) {
        if (ch >= QChar(32) && ch <= QChar(127)) plain += ch;
    }
    return plain;
}

void StartDevice(Sender& s) {
    const QString command = "XMODEM RECEIVE \"" + s.job.secondName + "\"" + s.job.lineEnd;
    WorkerPrint(PlainCharacters(WorkerAsk(command, kCommandDelay)));
    WorkerSleep(kSettleDelay);
    Read(s);
}

// Waits for the device's request. The time limit ends the wait as if the device had asked
// for checksums; the tries normally run out before it, and that is a failure.
bool Handshake(Sender& s) {
    uint8_t first = s.count > 0 ? s.reply[s.count - 1] : 0;
    const int64_t deadline = NowMs() + kHandshakeTime;
    for (int tries = 1;; ++tries) {
        if (first == kCan) return false;
        s.useCrc = first == kCrcRequest;
        if (first == kNak || s.useCrc) return true;
        if (tries > kMostTries) return false;
        WorkerSleep(kHandshakeStep);
        Read(s);
        first = s.reply[0];
        if (NowMs() > deadline) return true;
    }
}

void ShowProgress(Sender& s) {
    if (s.sent % kBlocksPerStatus != 0) return;
    ShowJobStatus(s.job, "Sent: " + QString::number(s.sent) + "/" + QString::number(s.blocks));
}

bool DeviceCancelled(const Sender& s) {
    return s.reply[1] == kCan && s.reply[2] == kCan;
}

// Sends the frame until it is acknowledged. False when the transfer failed. A lone CAN
// neither counts as a retry nor pauses; only through it is the time limit ever reached,
// which then takes the block as acknowledged. Required, and so is that an acknowledged
// block goes by without a look at the user's abort.
bool SendFrame(Sender& s) {
    const int64_t deadline = NowMs() + kBlockTime;
    int retries = 0;
    do {
        ShowProgress(s);
        // The count of a frame with a sum, also in CRC mode.
        WorkerPutBytes(s.frame, kSentFrame);
        WorkerSleep(kAnswerDelay);
        Read(s);
        const uint8_t first = s.count > 0 ? s.reply[0] : 0;
        if (first == kAck) return true;
        if (first != kCan) {
            if (++retries > kMostRetries) return false;
            WorkerSleep(kRetryPause);
        } else if (DeviceCancelled(s)) {
            return false;
        }
        if (s.job.abort) return false;
    } while (NowMs() <= deadline);
    return true;
}

// An empty file still sends one block, of zeros.
bool SendBlocks(Sender& s) {
    do {
        const uint8_t* data = s.image.data() + s.sent * kShortBlock;
        ++s.sent;
        BuildFrame(s.frame, data, s.sent, s.useCrc);
        if (!SendFrame(s)) return false;
    } while (s.sent < s.blocks);
    return true;
}

// The reply block still holds the last block's ACK when nothing comes, so a silent device
// ends this after one step. Required.
void CloseTransfer(Sender& s) {
    for (int eots = 0; eots < kMostEots; ++eots) {
        WorkerPut(kEot);
        const int64_t deadline = NowMs() + kCloseTime;
        while (NowMs() < deadline) {
            WorkerSleep(kCloseStep);
            Read(s);
            if (s.reply[0] == kAck || WorkerIsStopped()) return;
        }
    }
}

void MoveFile(Sender& s) {
    if (!Handshake(s)) return WorkerPrint("Transfer failed to start!");
    if (SendBlocks(s)) {
        CloseTransfer(s);
        WorkerPrint("Transfer completed OK!");
    } else {
        WorkerPut(kCan, kCancelBytes);
        WorkerPrint("Transfer failed!");
    }
}

}  // namespace

void XmodemSendWorker(XmodemJob& job) {
    Sender s(job);
    if (LoadImage(s)) {
        StartDevice(s);
        MoveFile(s);
    } else {
        WorkerPrint("Transfer failed to start!");
    }
    WorkerSleep(kEmptyLineDelay);
    Read(s);
    PostJobEnd(s.job);
}
