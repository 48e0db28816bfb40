// The window and its buttons, against a simulated board on the virtual clock.
#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>

#include "base/AppPaths.h"
#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "filemanager/DeviceListing.h"
#include "filemanager/DevicePane.h"
#include "filemanager/FileManagerSettings.h"
#include "filemanager/FileManagerWindow.h"
#include "filemanager/PcPane.h"
#include "link/Connection.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSeams.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/TerminalMode.h"
#include "tests/support/BoardOnLine.h"
#include "tests/support/LocalTools.h"
#include "tests/support/ScratchFolder.h"
#include "ui/events/CurrentEventInternal.h"
#include "ui/events/EventQueue.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/gadgets/TextEntryGadget.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/Windows.h"
#include "upload/FlashSlotUpload.h"
#include "upload/UploadOptions.h"

namespace {

QString answer;  // of the text dialog
int questions;
bool yes;

class FileManager : public testing::Test {
  protected:
    FileManager() {
        OpenNumberedWindow(kMainWindow, 0, 0, 300, 300, "Test", kStandardWindowFlags);
        TextEntryGadget(kFamilyCombo, 0, 0, 9, 9, "picomite");
        TextEntryGadget(kModeText, 0, 0, 9, 9, "");
        AddDefaultFamilies();
        SetPcFolder(folder.path() + "/");
        SetLineEnding("CR");  // CR LF is Enter twice to these boards
        SetAfterFlashUpload(RefreshDeviceList);
        answers.message = [](const QString&, const QString&) { return ++questions, yes; };
        answers.text = [](const QString&, const QString&, const QString&) { return answer; };
        AnswerDialogs(&answers);
        StartCapture();
    }
    ~FileManager() override {
        AnswerDialogs(nullptr);
        DisconnectDevice();
        line.reset();
        SetTerminalMode(0);
    }

    void PlugIn(const char* board, int msPerByte = 1) {
        line.reset();  // it hands the clock back
        line = std::make_unique<BoardOnLine>(board, clock);
        line->SlowDown(msPerByte);
        AdoptTcpLink(line->TakeNearEnd());
        SetDeviceOnTcpip(true);
        ConnectDevice();
        SetTerminalMode(kModeFileManager);
    }

    // What the main loop's poll does, until nothing has come for a while.
    void Poll() {
        char block[16384];
        for (int quiet = 0; quiet < 40; ++quiet) {
            clock.Sleep(50);
            const int64_t count = ReceiveBytes(block, sizeof block);
            if (count <= 0) continue;
            ParseListingChunk(DecodeLinkText(block, count));
            quiet = 0;
        }
    }

    // What went out in the meantime.
    std::string Sent() {
        const std::string sent = line->Received().substr(seen);
        seen = line->Received().size();
        return sent;
    }

    static QStringList Rows() {
        QStringList rows;
        for (int row = 0; row < GadgetItemCount(kDeviceList); ++row) {
            rows += GadgetItemText(kDeviceList, row);
        }
        return rows;
    }
    // The first row that ends in a text.
    static int RowOf(const QString& text) {
        return Rows().indexOf(QRegularExpression(".*" + text));
    }
    static void Select(int list, const std::vector<int>& rows) {
        SetGadgetState(list, -1);
        for (int row : rows) SetGadgetItemSelected(list, row, true);
    }
    static void Raise(int64_t type, void (*handler)()) {
        InterfaceEvent event;
        event.type = type;
        const InterfaceEvent* before = MakeEventCurrent(&event);
        handler();
        MakeEventCurrent(before);
    }
    int64_t TimeOf(void (*handler)()) {
        const int64_t start = clock.Now();
        handler();
        return clock.Now() - start;
    }
    QString MakeFile(const QString& name) {
        return ScratchFolder::Put(folder.path() + '/' + name, "PRINT 1\n");
    }

    DialogAnswers answers;
    VirtualClock clock;
    QTemporaryDir folder;
    std::unique_ptr<BoardOnLine> line;
    size_t seen = 0;
};

TEST_F(FileManager, FoldersAndFilesComeAndGo) {
    PlugIn("picomite");
    OpenFileManager();
    Poll();
    answer = "new one";
    Sent();
    EXPECT_EQ(TimeOf(NewDeviceFolder), 1200 + 120 + 1000 + 660);
    EXPECT_EQ(Sent(), "mkdir \"new one\"\r\r\r\r\3files\r");
    Poll();
    const QString mark = "<DIR>  new one";
    Select(kDeviceList, {RowOf(mark)});
    Raise(kTypeLeftClick, DeviceListClicked);
    EXPECT_EQ(Sent(), "");  // a click alone selects
    Raise(kTypeLeftDoubleClick, DeviceListClicked);
    EXPECT_EQ(Sent(), "chdir \"new one\"\rfiles\r");
    EXPECT_EQ(Rows().join('|'), "..");
    Poll();
    EXPECT_EQ(Rows().join('|').toStdString(), "..|A:/new one");
    Select(kDeviceList, {0});
    Raise(kTypeLeftDoubleClick, DeviceListClicked);
    Poll();
    line->Board().AddFile("kept/d.bas", "", 0);
    line->Board().AddFile("a b.bas", "PRINT 1\r\n", 0);
    line->Board().AddFile("c.bas", "PRINT 1\r\n", 0);
    RefreshDeviceList();
    Poll();
    Sent();
    Select(kDeviceList, {0, RowOf(mark), RowOf("  a b.bas"), RowOf("  c.bas")});
    EXPECT_EQ(TimeOf(DeleteOnDevice), 3 * 200 + 200 + 120 + 1000 + 660);
    // The row ".." holds no name where names stand.
    EXPECT_EQ(Sent(), "rmdir \"new one\"\rkill \"a b.bas\"\rkill \"c.bas\"\r\r\r\r\3files\r");
    Poll();
    const QString listed = Rows().join('|');
    EXPECT_FALSE(listed.contains("new one") || listed.contains("b.bas") ||
                 listed.contains("c.bas"));
    SetGadgetText(kFamilyCombo, "micromite+");  // its rows have no column for the name
    line->Board().AddFile("e.bas", "", 0);
    RefreshDeviceList();
    Poll();
    Sent();
    Select(kDeviceList, {RowOf("kept"), RowOf("  e.bas")});
    DeleteOnDevice();
    EXPECT_EQ(Sent(), "rmdir \"kept\"\r\r\r\r\3files\r");
    EXPECT_TRUE(TakeCapture().contains("Error : Dir is not empty"));
    for (const auto handler : {DeleteOnDevice, CopyToPc}) {
        Select(kDeviceList, {});
        EXPECT_EQ(TimeOf(handler), 0);
    }
    answer.clear();
    EXPECT_EQ(TimeOf(NewDeviceFolder), 0);
    SetGadgetText(kFamilyCombo, "cmm2");
    AddGadgetItem(kDeviceList, "<DIR>  sub");
    Select(kDeviceList, {GadgetItemCount(kDeviceList) - 1});
    Sent();
    Raise(kTypeLeftDoubleClick, DeviceListClicked);
    EXPECT_EQ(Sent(), "chdir \"sub\"\rls\r");
}

TEST_F(FileManager, FlashSlotsAreShownLoadedReadAndErased) {
    const QString path = MakeFile("a.bas");
    PlugIn("picomite");
    OpenFileManager();
    EXPECT_EQ(GadgetText(kFlashViewButton), "memory");
    ToggleFlashView();
    EXPECT_EQ(GadgetText(kFlashViewButton), "SDcard");
    Poll();
    EXPECT_EQ(Rows().join('|'),
              "current program|Slot 1 available|Slot 2 available|Slot 3 available");
    Select(kPcList, {});
    CopyToDevice();
    EXPECT_TRUE(WindowIsOpen(kNoticeWindow));
    EXPECT_EQ(questions, 0);
    Select(kPcList, {1});
    CopyToDevice();  // the question comes once, and the answer is No
    EXPECT_FALSE(SlotUploadArmed());
    CopyToDevice();
    EXPECT_EQ(questions, 1);
    EXPECT_TRUE(SlotUploadArmed());
    Select(kDeviceList, {2});
    Sent();
    Raise(kTypeLeftClick, DeviceListClicked);
    EXPECT_TRUE(QString::fromStdString(Sent()).contains("FLASH OVERWRITE 2\r"));
    Poll();  // while the board wrote its flash the returns piled up, and their prompts end it
    EXPECT_EQ(Rows().join('|'), "current program");
    RefreshDeviceList();
    Poll();
    EXPECT_EQ(Rows().value(2).toStdString(), "Slot 2 in use: \"Print 1\"");
    EXPECT_EQ(Rows().value(1), "Slot 1 available");

    Select(kDeviceList, {2, 3});
    Sent();
    CopyToPc();
    Poll();  // no name is given: nothing is saved
    EXPECT_EQ(Sent(), "flash list 2\r");
    EXPECT_FALSE(deviceListing.savingProgram);
    EXPECT_EQ(TimeOf(DeleteOnDevice), 800 + 200 + 120 + 1000 + 660);
    EXPECT_EQ(Sent().substr(0, 14), "flash erase 2\r");
    Poll();
    EXPECT_EQ(Rows().value(2), "Slot 2 available");
    Select(kDeviceList, {0});
    DeleteOnDevice();  // main memory stays
    EXPECT_EQ(Sent(), "\r\r\r\3flash list\r");

    CopyToDevice();  // armed again
    for (const auto handler : {CopyToPc, DeleteOnDevice, DeviceListClicked}) {
        Poll();
        StartDeviceRows("current program");
        ParseListingChunk("\r\nno row\r\n Slot 1 in use\r\n> ");
        Select(kDeviceList, {2});
        Sent();
        Raise(kTypeLeftClick, handler);
        EXPECT_EQ(Sent(), "\r\r\3flash list\r");
        EXPECT_TRUE(
            TakeCapture().endsWith("Row 2 shows slot 1: nothing was sent, the list is "
                                   "read anew."));
    }
    EXPECT_TRUE(SlotUploadArmed());
    ToggleFlashView();
    SetGadgetText(kFamilyCombo, "micromite");
    clock.Sleep(50);
    Sent();
    EXPECT_EQ(TimeOf(RefreshDeviceList), 260);  // no drive: flash view, of main memory alone
    EXPECT_TRUE(deviceListing.flashView);
    EXPECT_EQ(Rows().join('|'), "current program");
    ToggleFlashView();
    EXPECT_TRUE(deviceListing.flashView);
}

// Bytes come one by one: waits end inside sequences, polls inside prompts and echoes.
TEST_F(FileManager, OnASlowLineTheSlotsKeepTheirRows) {
    OpenFileManager();
    for (const int msPerByte : {91, 67, 59, 42, 33, 25, 17}) {
        PlugIn("picomite", msPerByte);
        ToggleFlashView();
        Poll();
        EXPECT_EQ(Rows().join('|').toStdString(),
                  "current program|Slot 1 available|Slot 2 available|Slot 3 available")
            << msPerByte;
        ToggleFlashView();
        AdoptTcpLink(0);
    }
}

TEST_F(FileManager, BothPcGadgetsStandOnOneFolder) {
    MakeFile("a.bas");
    MakeFile("b.txt");
    QDir(folder.path()).mkdir("sub");
    OpenFileManager();
    EXPECT_EQ(Rows().join('|'), "");  // with no link the list is left alone
    SetGadgetText(kPcPathEntry, folder.path() + "/sub");
    Raise(kTypePathChanged, PathBoxChanged);
    EXPECT_EQ(GadgetText(kPcList), folder.path() + "/sub/");
    SetGadgetText(kPcPathEntry, folder.path() + "/su");  // typed half: the list stays
    Raise(kTypePathChanged, PathBoxChanged);
    EXPECT_EQ(GadgetText(kPcList), folder.path() + "/sub/");
    SetGadgetText(kPcList, folder.path());
    Raise(kTypeValueChanged, PcListChanged);
    EXPECT_EQ(GadgetText(kPcPathEntry), folder.path() + "/");
    answer = "made";
    NewPcFolder();
    EXPECT_TRUE(QDir(folder.path() + "/made").exists());
    SetGadgetText(kPcList, folder.path());
    Select(kPcList, {0, 1, 2, 3});  // "..", made, sub and a.bas
    CopyToDevice();
    EXPECT_TRUE(TakeCapture().startsWith("Processing file: " + folder.path() + "/a.bas"));
    Select(kPcList, {0, 1, 2, 3});
    DeleteOnPc();
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).join('|'),
              "b.txt|made|sub");
    EXPECT_EQ(GadgetItemCount(kPcList), 4);
}

TEST_F(FileManager, TheEditorOpensTheSelectedFile) {
    const QString path = MakeFile("a.bas"), made = folder.path() + "/made";
    const QString editor =
        ScratchFolder::Put(folder.path() + "/KWEdit", "#!/bin/sh\necho \"$#$1\" >" + made.toUtf8());
    QFile::setPermissions(editor, QFile::ReadOwner | QFile::ExeOwner);
    const_cast<AppPaths&>(appPaths).programFolder = folder.path() + "/";
    OpenFileManager();
    EditSelectedFile();  // none is selected
    Select(kPcList, {1});
    EditSelectedFile();
    EXPECT_TRUE(
        ServeUntil([&] { return ScratchFolder::Get(made).endsWith('\n'); }, [](int32_t) {}));
    EXPECT_EQ(ScratchFolder::Get(made), "1" + path.toUtf8() + "\n");
}

TEST_F(FileManager, PlaceAndDivisionAreKeptAndTheModeGoesBack) {
    SetPcFolder("/no/such/folder/");
    ShowTerminalMode(kModeFileManager);
    OpenFileManager();
    EXPECT_NE(fileManagerSettings.pcFolder, "/no/such/folder/");
    EXPECT_EQ(GadgetX(kDeviceToolbar), 340);
    ResizeNumberedWindow(kFileManagerWindow, kKeep, kKeep, 900, 400);
    SetGadgetState(kPaneSplitter, 420);
    SetGadgetColumnWidth(kPcList, 1, 77);
    ResizeFileManager();
    EXPECT_EQ(GadgetX(kDeviceToolbar), 460);
    EXPECT_EQ(GadgetX(kFlashViewButton), 385);
    EXPECT_EQ(GadgetHeight(kPaneSplitter), 310);
    for (int gadget = kPcList; gadget <= kEditFileButton; ++gadget) {
        EXPECT_TRUE(!GadgetExists(gadget) || !GadgetName(gadget).isEmpty()) << gadget;
    }
    CloseFileManager();
    EXPECT_EQ(fileManagerSettings.width, 900);
    EXPECT_EQ(fileManagerSettings.splitter, 420);
    EXPECT_EQ(fileManagerSettings.columns[1], 77);
    EXPECT_EQ(terminalMode, 0);
    EXPECT_EQ(GadgetText(kModeText), "VT Terminal");
}

}  // namespace
