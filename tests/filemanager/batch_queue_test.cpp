// Lists of files, step by step: what the queue itself does, and whole batches with the
// workers' own threads.
#include <QDir>

#include "tests/filemanager/file_manager_rig.h"
#include "ui/events/WaitWindowEvent.h"
#include "upload/UploadOptions.h"
#include "xmodem/TransferWorkers.h"

namespace {

const bool startState = KeepStartState(PutBackFileManager);

// Which way a file goes; the link is down, so no worker starts and nothing else is done.
TEST_F(FileManager, TheRoadOfAFile) {
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
            clock.onTick = [&](int64_t) {
                EXPECT_EQ(linkStatus.quietTerminal, useXmodem || list.contains('\n'));
                EXPECT_TRUE(linkStatus.queueBusy);
            };
            BatchSend(list);
            EXPECT_FALSE(linkStatus.queueBusy || linkStatus.quietTerminal);
            const QString head = "Processing file: " + list.section('\n', 0, 0);
            const QString printed = TakeCapture();
            EXPECT_EQ(printed, head + (program ? "Uploading using:  Upload started" : "") + road);
            EXPECT_EQ(clock.Now() - start, 2 * 120 + 2000 + (list == large ? 1000 : 0));
        }
    }
    EXPECT_FALSE(XmodemSendWorkerRuns());
}

struct FileManagerThreads : FileManager {
    FileManagerThreads() {
        PlugIn("picomite");
        OpenFileManager();
        TakeCapture();
    }
    ~FileManagerThreads() override { StopTransferWorkers(); }

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

    QString printed;
};

TEST_F(FileManagerThreads, ListsGoThereAndBack) {
    const std::string one(300, 'a'), two(5000, 'b');
    const QString first = MakeFile("one.bin", one), second = MakeFile("two.bin", two);
    UploadSettingsForTable().useXmodemForDrop = 0;
    BatchSend(first + "\n" + second);
    EXPECT_TRUE(XmodemSendWorkerRuns());
    EXPECT_FALSE(linkStatus.quietTerminal);
    LoopUntil("Finished");
    EXPECT_EQ(printed.count("Transfer completed OK!"), 2) << printed.toStdString();
    std::string held;
    EXPECT_TRUE(line->Board().ReadFile("one.bin", &held));
    EXPECT_EQ(held, one + std::string(84, '\0'));
    EXPECT_TRUE(line->Board().ReadFile("two.bin", &held));
    EXPECT_EQ(held, two + std::string(120, '\0'));

    // On the PC a name with folders in it stays in the folder.
    line->Board().AddFile("games/up.bin", two, 0);
    BatchReceive("one.bin\ngames/up.bin\n");
    EXPECT_TRUE(XmodemReceiveWorkerRuns());
    EXPECT_TRUE(linkStatus.quietTerminal);
    CloseFileManager();  // the folder stays what it was
    LoopUntil("Finished");
    EXPECT_FALSE(linkStatus.quietTerminal);
    EXPECT_EQ(ScratchFolder::Get(first).toStdString(), one + std::string(84, '\0'))
        << printed.toStdString();
    EXPECT_TRUE(ScratchFolder::Get(folder.path() + "/up.bin").toStdString() ==
                two + std::string(120, 0))
        << printed.toStdString();
}

// Whether the worker still meets its flag or is killed, the next file is not begun.
TEST_F(FileManagerThreads, AbortEmptiesTheQueues) {
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
TEST_F(FileManagerThreads, FetchesWhatTheRowsName) {
    const struct {
        const char *family, *row, *name;
    } rows[] = {
        {"picomite", "10:07 21-06-2025       1234  a b.bas", "a b.bas"},
        {"maximite", "PROG.BAS 1234", "PROG.BAS"},
        {"cmm2", "10:07 21-06-2025       1234  prog.bas", "prog.bas"},
    };
    QDir(folder.path()).mkdir("sub");
    for (const auto& row : rows) {
        SetGadgetText(kFamilyCombo, row.family);
        ClearGadgetItems(kDeviceList);
        AddGadgetItem(kDeviceList, row.row);
        StartCapture();
        EXPECT_EQ(Press(kCopyToPcButton, {0}).substr(0, 5), "2120|");
        EXPECT_TRUE(TakeCapture().startsWith(QString("Processing file: ") + row.name));
        EXPECT_EQ(JobOf(Direction::kReceive).firstName, row.name);
        EXPECT_EQ(JobOf(Direction::kReceive).secondName, GadgetText(kPcList) + row.name);
        EXPECT_TRUE(XmodemReceiveWorkerRuns());
        Press(kAbortTransferButton);
        EXPECT_FALSE(XmodemReceiveWorkerRuns());
        SetGadgetText(kPcList, folder.path() + "/sub");
    }
}

}  // namespace
