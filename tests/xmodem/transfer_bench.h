// A transfer on the test's own thread: the virtual clock, a device at the far end, and a
// loop that serves the worker's posted events whenever it sleeps on its semaphore.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <memory>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalScreen.h"
#include "tests/support/FarEnd.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/TurnsClock.h"
#include "tests/support/XmodemFrame.h"
#include "ui/events/WaitWindowEvent.h"
#include "xmodem/Receive.h"
#include "xmodem/Send.h"
#include "xmodem/TransferWorkers.h"
#include "xmodem/XmodemSeams.h"

class TransferBench : public testing::Test {
  protected:
    TransferBench() {
        SetServeBeforeWait(TakeEvents);
        ended = 0;
        clock.onTick = [this](int64_t now) {
            const std::string came = line->Read();
            out += came;
            const std::string answer = device ? device(now, came) : std::string();
            if (!answer.empty()) line->Write(answer);
        };
    }
    static void TakeEvents() {
        for (int32_t event; (event = WaitForEvent(0)) != kNoEvent;) {
            if (event == kEventSendStatus) ShowSendStatus();
            if (event == kEventReceiveStatus) ShowReceiveStatus();
            if (event == kEventPrintLine) PrintHandedLines();
            if (event == kEventSendDone || event == kEventReceiveDone) ++ended;
        }
    }

    // What was printed, run together; `out` is what the device got behind the command.
    QString Transfer(Direction direction, const QString& name = "pc.bin") {
        XmodemJob& job = JobOf(direction);
        const bool sends = direction == Direction::kSend;
        sem_init(&job.semaphore, 0, 0);
        job.firstName = sends ? name : "d.bin";
        job.secondName = sends ? "d.bin" : name;
        job.lineEnd = "\r";
        job.abort = false;
        StartCapture();
        out.clear();
        const int64_t start = clock.Now();
        const int endedBefore = ended;
        sends ? XmodemSendWorker(job) : XmodemReceiveWorker(job);
        took = clock.Now() - start;
        clock.Sleep(1);
        TakeEvents();
        EXPECT_EQ(ended, endedBefore + 1);
        out.erase(0, out.find("\"\r") + 2);
        return TakeCapture();
    }
    QString Fetch() { return Transfer(Direction::kReceive); }
    QString Store(const std::string& content) {
        Write(content);
        return Transfer(Direction::kSend);
    }

    // `far` acts from behind the device's command on.
    template <typename Device>
    std::string Act(Device& far, int64_t now, const std::string& came) {
        if (commanded) return far.Act(now, came);
        commanded = came.find("XMODEM") != came.npos;
        return "";
    }
    void Relink(bool overTcp = false) {
        line.reset();
        line = std::make_unique<FarEnd>(overTcp);
    }

    static void Write(const std::string& bytes, const char* name = "pc.bin") {
        ScratchFolder::Put(name, QByteArray::fromStdString(bytes));
    }
    static std::string Content(const char* name = "pc.bin") {
        return QFile::exists(name) ? ScratchFolder::Get(name).toStdString() : "(none)";
    }

    ScratchFolder folder;
    TurnsClock clock;
    std::unique_ptr<FarEnd> line = std::make_unique<FarEnd>();
    std::function<std::string(int64_t now, const std::string& came)> device;
    std::string out;
    int64_t took = 0;  // milliseconds of the last transfer
    bool commanded = false;
    static inline int ended = 0;
};

inline std::string Padded(std::string data, size_t block = 128) {
    data.resize((data.size() + block - 1) / block * block);
    return data;
}

// The sending device: a frame for each NAK and ACK, the last one again after 3 s.
struct SendingDevice {
    std::string content;
    size_t block = 128, next = 0;
    int64_t lastSent = INT64_MAX / 2;  // silent until it is asked
    int errors = 0;

    std::string Act(int64_t now, const std::string& came) {
        const size_t verdict = came.find_first_of({kAckByte, kNakByte, kCanByte});
        if (errors > 25 || (verdict == std::string::npos && now < lastSent + 3000)) return "";
        const char byte = verdict == std::string::npos ? kNakByte : came[verdict];
        if (byte == kCanByte) errors = 99;
        byte == kAckByte ? ++next : ++errors;
        lastSent = now;
        if (next * block > content.size()) return "";
        if (next * block == content.size()) return {kEotByte};
        return FrameOf(next + 1, content.substr(next * block, block));
    }
};

// The receiving device: strict on frames, and silent while a line is not.
struct ReceivingDevice {
    std::string content, frame;
    int64_t lastByte = 0, lastAsked = -2000;

    std::string Act(int64_t now, const std::string& came) {
        frame += came;
        if (!came.empty()) lastByte = now;
        if (frame.empty()) {
            if (!content.empty() || now < lastAsked + 2000) return "";
            lastAsked = now;
            return {kNakByte};
        }
        if (frame.size() != 132 && now < lastByte + 100) return "";
        const int due = content.size() / 128 + 1;
        const std::string data = frame.size() == 132 ? frame.substr(3, 128) : "";
        const bool wanted = frame == FrameOf(due, data), again = frame == FrameOf(due - 1, data);
        const bool end = frame == std::string(1, kEotByte);
        if (wanted) content += data;
        frame.clear();
        return std::string(1, wanted || again || end ? kAckByte : kNakByte);
    }
};
