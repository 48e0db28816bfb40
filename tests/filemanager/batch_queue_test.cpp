// Lists of files, step by step: on the virtual clock what the queue itself does, and
// whole batches with the workers' own threads and a simulated board.
#include "filemanager/BatchQueue.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "base/Numbers.h"
#include "filemanager/DevicePane.h"
#include "link/LinkPrimitives.h"
#include "simulator/SimulatedBoard.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalScreen.h"
#include "tests/support/FarEnd.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/StartState.h"
#include "tests/support/TurnsClock.h"
#include "tests/support/VirtualClock.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/gadgets/ExplorerListGadget.h"
#include "ui/gadgets/ListGadget.h"
#include "ui/gadgets/TextEntryGadget.h"
#include "ui/windows/Windows.h"
#include "upload/DeviceFamily.h"
#include "upload/UploadOptions.h"
#include "xmodem/TransferWorkers.h"

namespace {

const bool startState = KeepStartState(PutBackFileManager);

class BatchQueue : public testing::Test {
  protected:
    BatchQueue() { StartCapture(); }

    // A new file in the folder; its path.
    QString MakeFile(const char* name, const std::string& bytes = "PRINT 1\n") {
        return ScratchFolder::Put(folder.path() + '/' + name, QByteArray::fromStdString(bytes));
    }
    static std::string Content(const QString& path) {
        return ScratchFolder::Get(path).toStdString();
    }

    QTemporaryDir folder;
};

// Which way a file goes; the link is down, so no worker starts and nothing else is done.
TEST_F(BatchQueue, TheRoadOfAFile) {
    VirtualClock clock;
    const QString bas = MakeFile("a.Bas"), bin = MakeFile("b.bin", std::string(4000, 'x')),
                  bare = MakeFile("bare");
    const QString large = MakeFile("c.dat", std::string(4001, 'x'));
    const QString lists[] = {bas, bas + "\n" + bin, bin, large, bare, "/none/x.UF2"};
    const QString tried = "not set failed!Check port then try again";
    for (const bool useXmodem : {true, false}) {
        UploadSettingsForTable().useXmodemForDrop = useXmodem;
        for (const QString& list : lists) {
            const bool program = list == bas && !useXmodem, firmware = list.endsWith("UF2");
            const QString road = firmware ? "Firmware updateport not set" : tried;
            const int64_t start = clock.Now();
            BatchSend(list);
            const QString head = "Processing file: " + list.section('\n', 0, 0);
            const QString printed = TakeCapture();
            EXPECT_EQ(printed, head + (program ? "Uploading using:  Upload started" : "") + road);
            EXPECT_EQ(clock.Now() - start, 2 * 120 + 2000 + (list == large ? 1000 : 0));
        }
    }
    EXPECT_FALSE(XmodemSendWorkerRuns());
}

class BatchQueueThreads : public BatchQueue {
  protected:
    BatchQueueThreads() : board(*simulator::FindBoardFacts("picomite")) {
        OpenNumberedWindow(kFileManagerWindow, 0, 0, 300, 300, "Files", kStandardWindowFlags);
        ExplorerListGadget(kPcList, 0, 0, 200, 200, folder.path() + "/");
        board.PowerUp(clock.Now());
        board.TakeOutput();
        clock.onTick = [this](int64_t now) {
            board.Receive(line.Read(), now);
            board.Advance(now);
            const std::string output = board.TakeOutput();
            if (SerialLinkIsOpen()) line.Write(output);
        };
    }
    ~BatchQueueThreads() override { StopTransferWorkers(); }

    // What the main loop does, until a text was printed.
    void LoopUntil(const QString& text, int64_t limit = 120000) {
        printed.clear();
        const int64_t end = clock.Now() + limit;
        do {
            clock.Sleep(20);
            const int32_t event = WaitForEvent(0);
            if (event == kEventSendStatus) ShowSendStatus();
            if (event == kEventReceiveStatus) ShowReceiveStatus();
            if (event == kEventPrintLine) PrintHandedLines();
            if (event == kEventSendDone) BatchSend(kQueueNext);
            if (event == kEventReceiveDone) BatchReceive(kQueueNext);
            printed += TakeCapture();
            StartCapture();
        } while (!printed.contains(text) && clock.Now() < end);
    }

    TurnsClock clock;
    FarEnd line;
    simulator::SimulatedBoard board;
    QString printed;
};

TEST_F(BatchQueueThreads, ListsGoThereAndBack) {
    const std::string one(300, 'a'), two(5000, 'b');
    const QString first = MakeFile("one.bin", one), second = MakeFile("two.bin", two);
    UploadSettingsForTable().useXmodemForDrop = 0;
    BatchSend(first + "\n" + second);
    EXPECT_TRUE(XmodemSendWorkerRuns());
    EXPECT_FALSE(linkStatus.quietTerminal);
    LoopUntil("Finished");
    EXPECT_EQ(printed.count("Transfer completed OK!"), 2) << printed.toStdString();
    std::string held;
    EXPECT_TRUE(board.ReadFile("one.bin", &held));
    EXPECT_EQ(held, one + std::string(84, '\0'));
    EXPECT_TRUE(board.ReadFile("two.bin", &held));
    EXPECT_EQ(held, two + std::string(120, '\0'));

    // On the PC a name with folders in it stays in the folder.
    board.AddFile("games/up.bin", two, 0);
    BatchReceive("one.bin\ngames/up.bin\n");
    EXPECT_TRUE(XmodemReceiveWorkerRuns());
    EXPECT_TRUE(linkStatus.quietTerminal);
    CloseNumberedWindow(kFileManagerWindow);  // the folder stays what it was
    LoopUntil("Finished");
    EXPECT_FALSE(linkStatus.quietTerminal);
    EXPECT_EQ(Content(first), one + std::string(84, '\0')) << printed.toStdString();
    EXPECT_TRUE(Content(folder.path() + "/up.bin") == two + std::string(120, 0))
        << printed.toStdString();
}

// Whether the worker still meets its flag or is killed, the next file is not begun.
TEST_F(BatchQueueThreads, AbortEmptiesTheQueues) {
    BatchSend(MakeFile("one.bin", std::string(9000, 'a')) + "\n" + MakeFile("two.bin"));
    LoopUntil("Sent: 20/71");
    EXPECT_TRUE(XmodemSendWorkerRuns());
    AbortTransfers();
    EXPECT_FALSE(XmodemSendWorkerRuns());
    EXPECT_TRUE(linkStatus.quietTerminal && !linkStatus.queueBusy);
    LoopUntil("Processing", 10000);
    EXPECT_FALSE(printed.contains("Processing")) << printed.toStdString();
    BatchSend(kQueueNext);
    EXPECT_FALSE(TakeCapture().contains("Processing"));
}

// What is asked of the device, where it goes on the PC, and what "Abort" leaves.
TEST_F(BatchQueueThreads, FetchesWhatTheRowsName) {
    const struct {
        const char *family, *row, *name;
    } rows[] = {
        {"picomite", "10:07 21-06-2025       1234  a b.bas", "a b.bas"},
        {"maximite", "PROG.BAS 1234", "PROG.BAS"},
        {"cmm2", "10:07 21-06-2025       1234  prog.bas", "prog.bas"},
    };
    TextEntryGadget(kFamilyCombo, 0, 0, 9, 9, "");
    ListGadget(kDeviceList, 0, 200, 200, 100);
    AddDefaultFamilies();
    QDir(folder.path()).mkdir("sub");
    for (const auto& row : rows) {
        SetGadgetText(kFamilyCombo, row.family);
        ClearGadgetItems(kDeviceList);
        AddGadgetItem(kDeviceList, row.row);
        SetGadgetState(kDeviceList, 0);
        CopyToPc();
        EXPECT_EQ(JobOf(Direction::kReceive).firstName, row.name);
        EXPECT_EQ(JobOf(Direction::kReceive).secondName, GadgetText(kPcList) + row.name);
        EXPECT_TRUE(XmodemReceiveWorkerRuns());
        AbortTransfers();
        EXPECT_FALSE(XmodemReceiveWorkerRuns());
        SetGadgetText(kPcList, folder.path() + "/sub");
    }
}

}  // namespace
