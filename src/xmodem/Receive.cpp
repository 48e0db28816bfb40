#include "xmodem/Receive.h"

#include <algorithm>
#include <cstring>

#include "base/Pacing.h"
#include "base/WorkerThread.h"
#include "xmodem/Frame.h"
#include "xmodem/PcFile.h"
#include "xmodem/WorkerCalls.h"
#include "xmodem/XmodemJob.h"
#include "xmodem/XmodemReport.h"

namespace {

// Milliseconds.
constexpr int64_t kWakeDelay = 200;     // behind the empty line that brings a prompt
constexpr int64_t kCommandDelay = 100;  // behind the command
constexpr int64_t kLookInterval = 50;   // between two looks for a frame's start
constexpr int64_t kQuietPause = 800;    // more, when there was none
constexpr int32_t kFrameTime = 1000;    // for a frame, from when it is first looked for
constexpr int32_t kLongestAwait = 20;   // for one more byte of it

constexpr int kLooks = 10;          // before whatever came is judged as a frame
constexpr int kMostEmptyPolls = 9;  // more in a row end the transfer
constexpr int kCansFromSender = 3;  // at the head of a frame: the device gave up
constexpr int kBlocksPerStatus = 10;

struct Receiver {
    explicit Receiver(XmodemJob& shared) : job(shared), file(shared.secondName) {}

    XmodemJob& job;
    PcFile file;
    uint8_t reply[kWorkerBlock] = {};  // what the last read brought, over what was there
    uint8_t frame[kWorkerBlock] = {};  // the frame that is being built; never cleared
    int count = 0;                     // bytes that the last read brought; below 0 for no link
    int have = 0;                      // bytes of the frame; may pass the block's size
    int blockSize = kShortBlock;
    int64_t blockNumber = 1;
    uint8_t blockByte = 1;  // blockNumber on the wire
    bool gotBlock = false;
    uint8_t first = 0;  // first byte of the frame looked for; EOT once all has come
    int emptyPolls = 0;
    int32_t deadline = 0;  // low 32 bits of the clock
};

void Read(Receiver& r) {
    r.count = WorkerTake(r.reply);
}

// Milliseconds until the time is past the deadline. The difference is taken in 32 bits as
// well, so that it holds when the count wraps.
int32_t TimeLeft(const Receiver& r) {
    const uint32_t now = static_cast<uint32_t>(NowMs());
    return static_cast<int32_t>(static_cast<uint32_t>(r.deadline) + 1 - now);
}

// Checksum mode is asked for always. What the read before the NAK brings is dropped, but
// it stays in `reply`, where the first look sees it.
void Prepare(Receiver& r) {
    WorkerAsk(r.job.lineEnd, kWakeDelay);
    const QString command = "XMODEM SEND \"" + r.job.firstName + "\"" + r.job.lineEnd;
    ShowJobStatus(r.job, WorkerAsk(command, kCommandDelay));
    WorkerTake(r.reply);
    WorkerPut(kNak);
}

enum class Look { kNothing, kFrame, kEnd };

Look FrameOf(Receiver& r, int blockSize) {
    r.blockSize = blockSize;
    return Look::kFrame;
}

Look LookForStart(Receiver& r) {
    WorkerSleep(kLookInterval);
    Read(r);
    // Stale when nothing came, on purpose: a frame that came in one read leaves its SOH
    // here, and the next look goes on to collect the frame behind it. So a device that
    // falls silent after a block is asked again and again, until the user stops it. Only
    // a link that was closed counts as quiet.
    r.first = r.count < 0 ? 0 : r.reply[0];
    switch (r.first) {
        case kSoh:
            return FrameOf(r, kShortBlock);
        case kStx:
            return FrameOf(r, kLongBlock);
        case kCan:
            return FrameOf(r, r.blockSize);
        case kEot:
            WorkerPut(kAck);
            return Look::kEnd;
        case 0:
            ++r.emptyPolls;
            WorkerSleep(kQuietPause);
            return Look::kNothing;
        default:
            WorkerAsk(r.job.lineEnd, 0);
            return Look::kNothing;
    }
}

bool GiveUpOnSilence(Receiver& r) {
    if (r.emptyPolls <= kMostEmptyPolls) return false;
    WorkerAsk("\r", 0);
    XmodemReport(kTooManyErrors, r.blockNumber);
    return true;
}

// False when the transfer is over.
bool WaitForStart(Receiver& r) {
    r.deadline = static_cast<int32_t>(static_cast<uint32_t>(NowMs()) + kFrameTime);
    r.emptyPolls = 0;
    for (int attempt = 1; attempt <= kLooks; ++attempt) {
        const Look look = LookForStart(r);
        if (look != Look::kNothing) return look == Look::kFrame;
        if (!r.gotBlock) WorkerPut(kNak);
        if (GiveUpOnSilence(r)) return false;
    }
    return true;
}

void CopyIntoFrame(Receiver& r) {
    const int room = kWorkerBlock - r.have;
    if (r.count > 0 && room > 0) memcpy(r.frame + r.have, r.reply, std::min(r.count, room));
}

bool SenderCancelled(const Receiver& r) {
    return std::all_of(r.frame, r.frame + kCansFromSender, [](uint8_t b) { return b == kCan; });
}

// Gathers the frame without a pause: the wait for one more byte ends with that byte. What
// the last read brings is not added. False when the device gave up.
bool Collect(Receiver& r) {
    const int expected = r.blockSize + kFrameOverhead;
    r.have = 0;
    do {
        CopyIntoFrame(r);
        if (SenderCancelled(r)) {
            XmodemReport(kAbortedBySender, 1);
            WorkerPut(kCan, kCansFromSender);
            WorkerPut(kAck);
            return false;
        }
        r.have += std::max(r.count, 0);
        if (r.have < expected) WorkerAwait(std::clamp(TimeLeft(r), 0, kLongestAwait));
        Read(r);
    } while (r.have < expected && TimeLeft(r) > 0 && !WorkerIsStopped());
    return true;
}

// 0 for a frame to be stored, or what XmodemReport gave. A wrong number and a wrong sum
// give two lines and two answers for the one frame. Required.
int Judge(const Receiver& r) {
    const int expected = r.blockSize + kFrameOverhead;
    if (r.have < expected) return XmodemReport(kShortFrame, r.blockNumber);
    if (r.have > expected) return XmodemReport(kLongFrame, r.blockNumber);
    const int fault = FaultOfNumber(r.frame, r.blockByte);
    int result = fault ? XmodemReport(fault, r.blockNumber) : 0;
    if (!SumIsRight(r.frame, r.blockSize)) result = XmodemReport(kWrongSum, r.blockNumber);
    return result;
}

void StoreBlock(Receiver& r) {
    if (r.blockNumber > 0 && r.blockNumber % kBlocksPerStatus == 0)
        ShowJobStatus(r.job, "Recv: " + QString::number(r.blockNumber));
    r.file.Append(r.frame + kFrameData, r.blockSize);
    WorkerPut(kAck);
    ++r.blockByte;
    ++r.blockNumber;
    r.emptyPolls = 0;
    r.gotBlock = true;
}

// One block, stored or asked for again. False when the transfer is over. The user's
// abort is looked at here alone, so it does not reach a worker that waits for a start.
bool ReceiveBlock(Receiver& r) {
    if (!WaitForStart(r) || !Collect(r)) return false;
    const int result = Judge(r);
    if (result == 0) StoreBlock(r);
    return result < kGiveUp && !r.job.abort;
}

// A worker that was killed leaves its file as it stands.
void Finish(Receiver& r) {
    if (WorkerIsStopped()) return;
    if (r.first == kEot && r.file.Keep()) {
        WorkerPrint("Completed OK");
    } else {
        WorkerPrint("File transfer failed");
        r.file.Remove();
    }
    PostJobEnd(r.job);
}

}  // namespace

void XmodemReceiveWorker(XmodemJob& job) {
    Receiver r(job);
    Prepare(r);
    while (ReceiveBlock(r)) {
    }
    Finish(r);
}
