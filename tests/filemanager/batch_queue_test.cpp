// Lists of files: what the queue itself does, and whole batches with the workers' threads.
#include "tests/filemanager/file_manager_rig.h"

namespace {

const bool startState = KeepStartState(PutBackFileManager);

// Which way a file goes; the link is down, so no worker starts and nothing else is done.
TEST_F(FileManager, TheRoadOfAFile) {
    for (const char* name : {"a.Bas", "bare"}) ScratchFolder::Put(name, "PRINT 1\n");
    ScratchFolder::Put("b.bin", QByteArray(4000, 'x'));
    ScratchFolder::Put("c.dat", QByteArray(4001, 'x'));
    for (const bool useXmodem : {true, false}) {
        UploadSettingsForTable().useXmodemForDrop = useXmodem;
        for (const QString list : {"a.Bas", "a.Bas\nb.bin", "b.bin", "c.dat", "bare", "x.UF2"}) {
            const bool program = list == "a.Bas" && !useXmodem;
            const int64_t start = clock.Now();
            clock.onTick = [&](int64_t) {
                EXPECT_EQ(linkStatus.quietTerminal, useXmodem || list.contains('\n'));
                EXPECT_TRUE(linkStatus.queueBusy);
            };
            BatchSend(list);
            EXPECT_FALSE(linkStatus.queueBusy || linkStatus.quietTerminal);
            EXPECT_EQ(TakeCapture(),
                      "Processing file: " + list.section('\n', 0, 0) +
                          (program ? "Uploading using:  Upload started" : "") +
                          (list == "x.UF2" ? "Firmware updateport not set"
                                           : "not set failed!Check port then try again"));
            EXPECT_EQ(uploadSource.currentFile, program ? list : "");
            SetCurrentFile("");
            EXPECT_EQ(clock.Now() - start, 2 * 120 + 2000 + (list == "c.dat" ? 1000 : 0));
        }
    }
    EXPECT_FALSE(XmodemSendWorkerRuns());
}

struct FileManagerThreads : FileManager {
    FileManagerThreads() {
        PlugIn();
        OpenFileManager();
        TakeCapture();
    }
};

TEST_F(FileManagerThreads, ListsGoThereAndBack) {
    const QByteArray one(300, 'a'), two(9000, 'b');
    ScratchFolder::Put("one.bin", one);
    ScratchFolder::Put("two.bas", two);
    UploadSettingsForTable().useXmodemForDrop = 0;
    BatchSend("one.bin\ntwo.bas");
    EXPECT_TRUE(XmodemSendWorkerRuns() && !linkStatus.quietTerminal);
    Poll();
    const QString sent = TakeCapture();
    EXPECT_TRUE(sent.count("Transfer completed OK!") == 2 && sent.contains("Finished"));
    // On the PC a name with folders in it stays in the folder.
    board.AddFile("games/up.bin", "up", 0);
    BatchReceive("one.bin\ntwo.bas\ngames/up.bin\n");
    EXPECT_TRUE(linkStatus.quietTerminal);
    CloseFileManager();  // the folder stays what it was
    Poll();
    const QString fetched = TakeCapture();
    EXPECT_TRUE(fetched.contains("Processing file: games/up.bin") && fetched.contains("Finished"));
    EXPECT_FALSE(linkStatus.quietTerminal);
    EXPECT_EQ(ScratchFolder::Get("one.bin"), one + QByteArray(84, '\0'));
    EXPECT_EQ(ScratchFolder::Get("two.bas"), two + QByteArray(88, '\0'));
    EXPECT_EQ(ScratchFolder::Get("up.bin"), "up" + QByteArray(126, '\0'));
    // Whether the worker still meets its flag or is killed, the next file is not begun.
    BatchSend("two.bas\none.bin");
    Poll("Sent: 20/71");
    AbortTransfers();
    EXPECT_TRUE(linkStatus.quietTerminal && !linkStatus.queueBusy && !XmodemSendWorkerRuns());
    Poll();
    TakeCapture();
    BatchSend(kQueueNext);
    EXPECT_FALSE(TakeCapture().contains("Processing"));
}

// What is asked of the device, where it goes on the PC, and what "Abort" leaves.
TEST_F(FileManagerThreads, FetchesWhatTheRowsName) {
    const char* const rows[][2] = {{"picomite", "10:07 21-06-2025       1234  a b.bas"},
                                   {"maximite", "PROG.BAS 1234"},
                                   {"cmm2", "10:07 21-06-2025       1234  prog.bas"}};
    QDir().mkdir("sub");
    QString asked;
    for (const auto& [family, row] : rows) {
        SetGadgetText(kFamilyCombo, family);
        StartDeviceRows(row);
        const int64_t start = clock.Now();
        Act("fetch 0");
        const XmodemJob& job = JobOf(Direction::kReceive);
        asked += QString("|%1 ").arg(clock.Now() - start) + job.firstName + ' ' + job.secondName;
        EXPECT_TRUE(XmodemReceiveWorkerRuns());
        Act("abort");
        EXPECT_FALSE(XmodemReceiveWorkerRuns());
        SetGadgetText(kPcList, folder + "/sub");
    }
    EXPECT_EQ(Plain(asked).toStdString(),
              "|2120 a b.bas ~/a b.bas|2120 PROG.BAS ~/sub/PROG.BAS|2120 prog.bas ~/sub/prog.bas");
}

}  // namespace
