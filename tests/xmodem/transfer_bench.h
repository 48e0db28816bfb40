// A transfer on the test's own thread: the virtual clock, a device at the far end, and a
// loop that serves the worker's posted events whenever it sleeps on its semaphore.
#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <deque>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalScreen.h"
#include "tests/support/FarEnd.h"
#include "tests/xmodem/turns_clock.h"
#include "ui/WaitWindowEvent.h"
#include "xmodem/Receive.h"
#include "xmodem/Send.h"
#include "xmodem/TransferWorkers.h"
#include "xmodem/XmodemJob.h"

constexpr char kAckByte = 6, kNakByte = 21, kCanByte = 24, kEotByte = 4;

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

    // What was printed, run together, and what the device got behind the command.
    QString Transfer(Direction direction, const std::string& path) {
        XmodemJob& job = JobOf(direction);
        const QString pcPath = QString::fromStdString(path);
        sem_init(&job.semaphore, 0, 0);
        job.firstName = direction == Direction::kSend ? pcPath : "d.bin";
        job.secondName = direction == Direction::kSend ? "d.bin" : pcPath;
        job.lineEnd = lineEnd;
        job.abort = false;
        StartCapture();
        out.clear();
        const int64_t start = clock.Now();
        const int endedBefore = ended;
        direction == Direction::kSend ? XmodemSendWorker(job) : XmodemReceiveWorker(job);
        took = clock.Now() - start;
        clock.Sleep(1);
        TakeEvents();
        EXPECT_EQ(ended, endedBefore + 1);
        out.erase(0, out.find("\"\r") + 2);
        return TakeCapture();
    }
    QString Fetch() { return Transfer(Direction::kReceive, Path()); }
    QString Store(const std::string& content) {
        WriteFile(Path(), content);
        return Transfer(Direction::kSend, Path());
    }

    std::string Path() const { return folder.path().toStdString() + "/pc.bin"; }
    bool FileThere() const { return access(Path().c_str(), F_OK) == 0; }
    static void WriteFile(const std::string& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string Content(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::string Content() const { return Content(Path()); }

    QTemporaryDir folder;
    QString lineEnd = "\r";
    TurnsClock clock;
    std::unique_ptr<FarEnd> line = std::make_unique<FarEnd>();
    std::function<std::string(int64_t now, const std::string& came)> device;
    std::string out;   // all that the device got, from behind the command on
    int64_t took = 0;  // milliseconds of the last transfer
    static inline int ended = 0;
};

// What a frame must be, written anew: the tests' own idea of it.
inline std::string FrameOf(int number, const std::string& data) {
    std::string frame = {data.size() == 128 ? '\1' : '\2', char(number), char(255 - number % 256)};
    int sum = 0;
    for (unsigned char byte : data) sum += byte;
    return frame + data + char(sum);
}

inline std::string Padded(std::string data, size_t block = 128) {
    data.resize((data.size() + block - 1) / block * block);
    return data;
}
