// Lists of files, step by step: what the queue itself does, and whole batches with the
// workers' own threads.
#include "tests/filemanager/file_manager_rig.h"

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
            EXPECT_EQ(TakeCapture(),
                      head + (program ? "Uploading using:  Upload started" : "") + road);
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
};

TEST_F(FileManagerThreads, ListsGoThereAndBack) {
    const std::string one(300, 'a'), two(5000, 'b');
    MakeFile("one.bin", one), MakeFile("two.bin", two);
    UploadSettingsForTable().useXmodemForDrop = 0;
    BatchSend(folder.path() + "/one.bin\n" + folder.path() + "/two.bin");
    EXPECT_TRUE(XmodemSendWorkerRuns() && !linkStatus.quietTerminal);
    Poll();
    EXPECT_EQ(
        Printed(),
        "^ > files^ A:/^ 0 directories, 0 files, 13631488 bytes free^ > ^ > Processing file: "
        "~/one.binBlocks: 3XMODEM RECEIVE \"one.bin\"Transfer completed OK!^ > Processing file: "
        "~/two.binBlocks: 40XMODEM RECEIVE \"two.bin\"Sent: 10/40Sent: 20/40Sent: 30/40"
        "Sent: 40/40Transfer completed OK!Finished^ >");
    // On the PC a name with folders in it stays in the folder.
    board->Board().AddFile("games/up.bin", two, 0);
    BatchReceive("one.bin\ngames/up.bin\n");
    EXPECT_TRUE(linkStatus.quietTerminal);
    CloseFileManager();  // the folder stays what it was
    Poll();
    EXPECT_EQ(
        Printed(),
        "Processing file: one.bin^ > ^ > XMODEM SEND \"one.bin\"^ Completed OKProcessing file: "
        "games/up.bin> ^ > ^ > XMODEM SEND \"games/up.bin\"^ "
        "Recv: 10Recv: 20Recv: 30Recv: 40Completed OKFinished> ^ >");
    EXPECT_FALSE(linkStatus.quietTerminal);
    EXPECT_EQ(FileText("one.bin"), one + std::string(84, '\0'));
    EXPECT_EQ(FileText("up.bin"), two + std::string(120, '\0'));
}

// Whether the worker still meets its flag or is killed, the next file is not begun.
TEST_F(FileManagerThreads, AbortEmptiesTheQueues) {
    BatchSend(MakeFile("one.bin", std::string(9000, 'a')) + "\n" + MakeFile("two.bin"));
    Poll("Sent: 20/71");
    EXPECT_TRUE(XmodemSendWorkerRuns());
    AbortTransfers();
    EXPECT_FALSE(XmodemSendWorkerRuns());
    EXPECT_TRUE(linkStatus.quietTerminal && !linkStatus.queueBusy);
    TakeCapture();
    Poll();
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
        Act("fetch 0");
        EXPECT_EQ(JobOf(Direction::kReceive).firstName, row.name);
        EXPECT_EQ(JobOf(Direction::kReceive).secondName, GadgetText(kPcList) + row.name);
        EXPECT_TRUE(XmodemReceiveWorkerRuns());
        Act("abort");
        EXPECT_FALSE(XmodemReceiveWorkerRuns());
        SetGadgetText(kPcList, folder.path() + "/sub");
    }
}

}  // namespace
