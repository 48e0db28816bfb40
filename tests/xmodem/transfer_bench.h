// A transfer on the test's own thread: its events are served when it waits for the loop.
#pragma once

#include <deque>

#include "simulator/SimulatedBoard.h"
#include "tests/support/Chosen.h"
#include "tests/support/FarEnd.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "tests/support/TurnsClock.h"
#include "tests/support/XmodemFrame.h"
#include "ui/events/WaitWindowEvent.h"
#include "xmodem/Receive.h"
#include "xmodem/Send.h"

const std::string kNak(1, kNakByte), kAck(1, kAckByte), kEot(1, kEotByte), kCan(1, kCanByte);

struct TransferBench : testing::Test {
    TransferBench() {
        SetServeBeforeWait(TakeEvents);
        ended = 0;
        clock.onTick = [this](int64_t now) {
            const std::string came = line->Read();
            out += came;
            if (device) line->Write(device(now, came));
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

    // What was printed, what the device got behind the command, what was fetched, milliseconds.
    using Story = std::tuple<std::string, std::string, std::string, int64_t>;
    Story Transfer(Direction direction) {
        XmodemJob& job = JobOf(direction);
        const bool sends = direction == Direction::kSend;
        sem_init(&job.semaphore, 0, 0);
        job.firstName = sends ? "pc.bin" : "d.bin";
        job.secondName = sends ? "d.bin" : "pc.bin";
        job.lineEnd = "\r";
        job.abort = false;
        StartCapture();
        out.clear();
        const int64_t start = clock.Now();
        sends ? XmodemSendWorker(job) : XmodemReceiveWorker(job);
        const int64_t took = clock.Now() - start;
        clock.Sleep(1);
        TakeEvents();
        EXPECT_EQ(std::exchange(ended, 0), 1);
        out.erase(0, out.find("\"\r") + 2);
        return {TakeCapture().toStdString(), out, sends ? "" : Content(), took};
    }
    Story Store(const std::string& content) {
        Write(content);
        return Transfer(Direction::kSend);
    }
    void PlugIn() {
        board.reset(new simulator::SimulatedBoard(*simulator::FindBoardFacts("picomite")));
        board->PowerUp(clock.Now());
        board->TakeOutput();
        device = [this](int64_t now, const std::string& came) {
            board->Receive(came, now);
            board->Advance(now);
            return board->TakeOutput();
        };
    }
    static void Write(const std::string& bytes) {
        ScratchFolder::Put("pc.bin", QByteArray::fromStdString(bytes));
    }
    static std::string Content() {
        return QFile::exists("pc.bin") ? ScratchFolder::Get("pc.bin").toStdString() : "(none)";
    }

    ScratchFolder folder;
    TurnsClock clock;
    std::unique_ptr<FarEnd> line = std::make_unique<FarEnd>();
    std::function<std::string(int64_t now, const std::string& came)> device;
    std::string out;
    std::unique_ptr<simulator::SimulatedBoard> board;
    static inline int ended = 0;
};

inline std::string Padded(std::string data) {
    data.resize((data.size() + 127) / 128 * 128);
    return data;
}
