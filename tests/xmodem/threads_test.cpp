// The workers on threads of their own, with a simulated board: the end of a file, and being
// stopped wherever they wait. No descriptor and no thread is left.
#include <filesystem>
#include <thread>

#include "tests/xmodem/transfer_bench.h"

namespace {

struct TransferThreads : TransferBench {
    TransferThreads() {
        SetServeBeforeWait(nullptr);
        StartCapture();
        Write(std::string(1300, 'x'));
        PlugIn();
        board->AddFile("d.bin", std::string(1280, 'y'), 0);
        std::thread([] {}).join();  // a sanitizer starts its own with the first
        kept = Held();
    }
    ~TransferThreads() override {
        StopTransferWorkers();
        EXPECT_TRUE(NothingIsLeft());
    }
    static int64_t Held() {
        int64_t count = 0;
        for (const char* folder : {"/proc/self/fd", "/proc/self/task"})
            count += std::distance(std::filesystem::directory_iterator(folder), {});
        return count;
    }
    // The kernel lists a thread for a moment longer than it can be joined.
    bool NothingIsLeft() const {
        for (int i = 0; Held() > kept && i < 20000; ++i) usleep(1000);
        return Held() <= kept;
    }
    template <typename Condition>
    bool LoopUntil(Condition condition) {
        for (int turns = 0; turns < 12000 && !condition(); ++turns) clock.Sleep(5);
        return condition();
    }
    static bool Ended() {
        TakeEvents();
        return ended == 1;
    }
    int64_t kept;
};

// A killed worker leaves its file, prints nothing and posts no end; the next one works.
TEST_F(TransferThreads, KilledInASleep) {
    device = nullptr;
    StartReceiveWorker("d.bin", "pc.bin");
    EXPECT_TRUE(LoopUntil([this] { return TakeEvents(), out.find(kNakByte) != out.npos; }));
    const int64_t start = clock.Now();
    StopTransferWorkers();
    EXPECT_GE(clock.Now(), start + kTimeToEnd);
    EXPECT_FALSE(Ended() || XmodemReceiveWorkerRuns());
    EXPECT_EQ(TakeCapture().toStdString() + Content(), "");
    EXPECT_TRUE(NothingIsLeft());
    PlugIn();
    board->AddFile("d.bin", std::string(1280, 'y'), 0);
    StartReceiveWorker("d.bin", "pc.bin");
    EXPECT_TRUE(XmodemReceiveWorkerRuns() && !XmodemSendWorkerRuns() && LoopUntil(Ended));
    EXPECT_EQ(TakeCapture(), "XMODEM SEND \"d.bin\"\r\nRecv: 10Completed OK");
    EXPECT_EQ(Content(), std::string(1280, 'y'));
}

// Nobody takes events at first: the stop itself shows the line that waits, and the worker goes
// on to tell the silent device. Its end is not taken for the one of the new file.
TEST_F(TransferThreads, StartedOverALivingWorker) {
    StartSendWorker("pc.bin", "first");
    EXPECT_TRUE(LoopUntil([] { return JobOf(Direction::kSend).statusWaits.load(); }));
    device = nullptr;
    const int64_t start = clock.Now();
    out.clear();
    StartSendWorker("pc.bin", "d.bin");
    EXPECT_LT(clock.Now(), start + kTimeToEnd);
    EXPECT_EQ(out.substr(0, 137), FrameOf(10, std::string(128, 'x')) + std::string(5, kCanByte));
    PlugIn();
    EXPECT_TRUE(LoopUntil(Ended));
    const QString begun = "Blocks: 11XMODEM RECEIVE \"%1\"Sent: 10/11\x1b[1ATransfer %2!";
    EXPECT_EQ(TakeCapture(), begun.arg("first", "failed") + begun.arg("d.bin", "completed OK"));
    std::string stored;
    EXPECT_TRUE(board->ReadFile("d.bin", &stored) && stored == Padded(Content()));
    EXPECT_TRUE(LoopUntil([] { return !XmodemSendWorkerRuns(); }));
}

}  // namespace
