// The workers on threads of their own beside the loop: the rendezvous, the end of a file, and being
// stopped wherever they wait.
#include <sys/socket.h>

#include "tests/xmodem/transfer_bench.h"

namespace {

class TransferThreads : public TransferBench {
  protected:
    TransferThreads() {
        SetServeBeforeWait(nullptr);
        clock.onTick = nullptr;
        StartCapture();
        std::ofstream(Path()) << std::string(1300, 'x');
    }
    ~TransferThreads() override { StopTransferWorkers(); }

    // Asks for blocks once the command has come, acknowledges those up to `last`.
    void Receive(int last) {
        const std::string came = line->Read();
        got += came;
        if (came.find("XMODEM R") != std::string::npos) askAt = clock.Now() + 700;
        if (askAt && clock.Now() > askAt) line->Write({kNakByte}), askAt = 0;
        if (came.size() == 132 && came[1] <= last) line->Write({kAckByte});
        if (came == std::string(1, kEotByte)) line->Write({kAckByte});
    }
    // Sends ten blocks, one for each NAK and ACK.
    void Send() {
        const std::string came = line->Read();
        if (came.find("XMODEM S") != std::string::npos || came.size() != 1) return;
        line->Write(next <= 10 ? FrameOf(next, std::string(128, 'y')) : std::string(1, kEotByte));
        ++next;
    }
    template <typename Condition>
    bool LoopUntil(Condition condition, const std::function<void()>& board) {
        const int64_t limit = clock.Now() + 60000;
        for (; !condition() && clock.Now() < limit; clock.Sleep(5)) board();
        return condition();
    }

    std::string got;
    int64_t askAt = 0;
    int next = 1;
};

TEST_F(TransferThreads, AFileEachWay) {
    const auto ends = [] { return TakeEvents(), ended == 1; };
    StartSendWorker(QString::fromStdString(Path()), "d.bin");
    EXPECT_TRUE(XmodemSendWorkerRuns());
    EXPECT_FALSE(XmodemReceiveWorkerRuns());
    EXPECT_TRUE(LoopUntil(ends, [this] { Receive(99); }));
    EXPECT_EQ(TakeCapture(), "Blocks: 11Sent: 10/11\x1b[1ATransfer completed OK!");
    EXPECT_TRUE(LoopUntil([] { return !XmodemSendWorkerRuns(); }, [] {}));

    ended = 0;
    StartReceiveWorker("d.bin", QString::fromStdString(Path()));
    EXPECT_TRUE(LoopUntil(ends, [this] { Send(); }));
    EXPECT_EQ(TakeCapture(), "Recv: 10Completed OK");
    EXPECT_EQ(Content(), std::string(1280, 'y'));
}

// Nobody takes events here: the stop itself shows the line, and the worker goes on to
// meet its abort flag, tells the device and ends.
TEST_F(TransferThreads, StoppedWhileALineWaits) {
    StartSendWorker(QString::fromStdString(Path()), "d.bin");
    EXPECT_TRUE(LoopUntil([] { return JobOf(Direction::kSend).statusWaits.load(); },
                          [this] { Receive(9); }));
    const int64_t start = clock.Now();
    StopSendWorker();
    EXPECT_LT(clock.Now(), start + kTimeToEnd);
    EXPECT_FALSE(XmodemSendWorkerRuns());
    TakeEvents();
    EXPECT_EQ(TakeCapture(), "Blocks: 11Sent: 10/11\x1b[1ATransfer failed!");
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(line->Read(), FrameOf(10, std::string(128, 'x')) + std::string(5, kCanByte));
}

// A killed worker leaves its file, prints nothing and posts no end; the next one works.
TEST_F(TransferThreads, KilledInASleep) {
    StartReceiveWorker("d.bin", QString::fromStdString(Path()));
    EXPECT_TRUE(LoopUntil([this] { return TakeEvents(), got.find(kNakByte) != got.npos; },
                          [this] { Receive(0); }));
    const int64_t start = clock.Now();
    StopTransferWorkers();
    EXPECT_GE(clock.Now(), start + kTimeToEnd);
    EXPECT_FALSE(XmodemReceiveWorkerRuns());
    TakeEvents();
    EXPECT_EQ(TakeCapture(), "");
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(FileThere());
    StartReceiveWorker("d.bin", QString::fromStdString(Path()));
    EXPECT_TRUE(LoopUntil([] { return TakeEvents(), ended == 1; }, [this] { Send(); }));
    EXPECT_EQ(Content(), std::string(1280, 'y'));
}

TEST_F(TransferThreads, KilledInASendThatNobodyTakes) {
    FarEnd mute(true);
    const std::string block(4096, 'z');
    while (send(linkStatus.netLink, block.data(), block.size(), MSG_DONTWAIT) > 0) {
    }
    StartSendWorker(QString::fromStdString(Path()), "d.bin");
    EXPECT_TRUE(LoopUntil([] { return linkStatus.netLink.users > 0; }, [] {}));
    StopSendWorker();
    EXPECT_FALSE(XmodemSendWorkerRuns());
    EXPECT_EQ(linkStatus.netLink.users, 0);
    EXPECT_EQ(ended, 0);
}

// The end of the earlier file is not taken for that of the new one.
TEST_F(TransferThreads, StartedOverALivingWorker) {
    StartSendWorker(QString::fromStdString(Path()), "first");
    EXPECT_TRUE(LoopUntil([this] { return got.find('\1') != got.npos; }, [this] { Receive(0); }));
    StartSendWorker(QString::fromStdString(Path()), "second");
    EXPECT_TRUE(LoopUntil([] { return TakeEvents(), ended > 0; }, [this] { Receive(99); }));
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(TakeCapture().endsWith("Transfer completed OK!"));
}

}  // namespace
