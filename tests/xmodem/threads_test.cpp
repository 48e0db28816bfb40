// The workers on threads of their own beside the loop: the rendezvous, the end of a file,
// and being stopped wherever they wait. Whatever happens, no descriptor and no thread is left.
#include <filesystem>
#include <thread>

#include "tests/xmodem/transfer_bench.h"

namespace {

// Byte operations on the link at this moment, beside the link itself and this look.
long UsersOfLink() {
    return linkStatus.netLink.Hold().use_count() - 2;
}

class TransferThreads : public TransferBench {
  protected:
    TransferThreads() {
        SetServeBeforeWait(nullptr);
        StartCapture();
        Write(std::string(1300, 'x'));
        sending.content = std::string(1280, 'y');
        std::thread([] {}).join();  // a sanitizer starts its own with the first
        kept = Held();
    }
    ~TransferThreads() override {
        StopTransferWorkers();
        EXPECT_EQ(Held(), kept);
    }
    // Descriptors and threads.
    static std::pair<int64_t, int64_t> Held() {
        const auto count = [](const char* folder) {
            return std::distance(std::filesystem::directory_iterator(folder), {});
        };
        return {count("/proc/self/fd"), count("/proc/self/task")};
    }
    // Starts with a device that falls silent once it holds `last` blocks.
    void StartSending(const char* name, size_t last = 99) {
        receiving = ReceivingDevice();
        commanded = false;
        device = [=](int64_t now, const std::string& came) {
            return receiving.content.size() < last * 128 ? Act(receiving, now, came) : "";
        };
        StartSendWorker("pc.bin", name);
    }
    void StartReceiving() {
        commanded = false;
        device = [=](int64_t now, const std::string& came) { return Act(sending, now, came); };
        StartReceiveWorker("d.bin", "pc.bin");
    }
    template <typename Condition>
    bool LoopUntil(Condition condition) {
        const int64_t limit = clock.Now() + 60000;
        while (!condition() && clock.Now() < limit) clock.Sleep(5);
        return condition();
    }
    static bool Ended() {
        TakeEvents();
        return ended == 1;
    }

    SendingDevice sending;
    ReceivingDevice receiving;
    std::pair<int64_t, int64_t> kept;
};

// Nobody takes events here: the stop itself shows the line, and the worker goes on to
// meet its abort flag, tells the device and ends.
TEST_F(TransferThreads, StoppedWhileALineWaits) {
    StartSending("d.bin", 9);
    EXPECT_TRUE(LoopUntil([] { return JobOf(Direction::kSend).statusWaits.load(); }));
    const int64_t start = clock.Now();
    out.clear();
    StopSendWorker();
    EXPECT_LT(clock.Now(), start + kTimeToEnd);
    EXPECT_TRUE(Ended() && !XmodemSendWorkerRuns());
    EXPECT_EQ(TakeCapture(), "Blocks: 11Sent: 10/11\x1b[1ATransfer failed!");
    EXPECT_EQ(out + line->Read(), FrameOf(10, std::string(128, 'x')) + std::string(5, kCanByte));
}

// A killed worker leaves its file, prints nothing and posts no end; the next one works.
TEST_F(TransferThreads, KilledInASleep) {
    StartReceiving();
    device = nullptr;
    EXPECT_TRUE(LoopUntil([this] { return TakeEvents(), out.find(kNakByte) != out.npos; }));
    const int64_t start = clock.Now();
    StopTransferWorkers();
    EXPECT_GE(clock.Now(), start + kTimeToEnd);
    EXPECT_FALSE(Ended() || XmodemReceiveWorkerRuns());
    EXPECT_EQ(TakeCapture(), "");
    EXPECT_EQ(Content(), "");
    EXPECT_EQ(Held(), kept);
    StartReceiving();
    EXPECT_TRUE(XmodemReceiveWorkerRuns() && !XmodemSendWorkerRuns() && LoopUntil(Ended));
    EXPECT_EQ(TakeCapture(), "Recv: 10Completed OK");
    EXPECT_EQ(Content(), sending.content);
}

TEST_F(TransferThreads, KilledInASendThatNobodyTakes) {
    Relink(true);
    clock.onTick = nullptr;
    const std::string block(4096, 'z');
    while (send(linkStatus.netLink, block.data(), block.size(), MSG_DONTWAIT) > 0) {
    }
    StartSendWorker("pc.bin", "d.bin");
    EXPECT_TRUE(LoopUntil([] { return UsersOfLink() > 0; }));
    StopSendWorker();
    EXPECT_FALSE(Ended() || XmodemSendWorkerRuns());
    EXPECT_EQ(UsersOfLink(), 0);
}

// The end of the earlier file is not taken for that of the new one.
TEST_F(TransferThreads, StartedOverALivingWorker) {
    StartSending("first", 1);
    EXPECT_TRUE(LoopUntil([this] { return receiving.content.size() == 128; }));
    StartSending("second");
    EXPECT_TRUE(LoopUntil(Ended));
    const QString all = "Blocks: 11Sent: 10/11\x1b[1ATransfer completed OK!";
    EXPECT_TRUE(TakeCapture().endsWith("Transfer failed!" + all));
    EXPECT_EQ(receiving.content, Padded(Content()));
    EXPECT_TRUE(LoopUntil([] { return !XmodemSendWorkerRuns(); }));
}

}  // namespace
