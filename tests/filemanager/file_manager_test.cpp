// The window and its buttons.
#include <QDir>

#include "base/AppPaths.h"
#include "tests/filemanager/file_manager_rig.h"
#include "tests/support/LocalTools.h"

namespace {

TEST_F(FileManager, FoldersAndFilesComeAndGo) {
    PlugIn("picomite");
    EXPECT_EQ(Did({}, OpenFileManager), "660|^^\3files^");
    EXPECT_EQ(RowsToCome(), "..|A:/");
    answer = "new one";
    EXPECT_EQ(Press(kDeviceNewFolderButton), "2980|mkdir \"new one\"^^^^\3files^");
    EXPECT_EQ(RowsToCome(), "..|A:/|<DIR>  new one");
    EXPECT_EQ(Raise(kTypeLeftClick, DeviceListClicked, {2}), "0|");  // a click alone selects
    EXPECT_EQ(Raise(kTypeLeftDoubleClick, DeviceListClicked, {2}), "400|chdir \"new one\"^files^");
    EXPECT_EQ(Rows(), "..");
    EXPECT_EQ(RowsToCome(), "..|A:/new one");
    EXPECT_EQ(Raise(kTypeLeftDoubleClick, DeviceListClicked, {1}), "0|");
    EXPECT_EQ(Raise(kTypeLeftDoubleClick, DeviceListClicked, {0}), "400|chdir \"..\"^files^");
    Poll();
    for (const char* name : {"kept/d.bas", "a b.bas", "c.bas"})
        line->Board().AddFile(name, "PRINT 1\r\n", 0);
    Press(kDeviceRefreshButton);
    EXPECT_EQ(RowsToCome(),
              "..|A:/|<DIR>  kept|<DIR>  new one|00:00 00-00-1980          9  a b.bas|00:00 "
              "00-00-1980          9  c.bas");
    // The row ".." holds no name where names stand.
    EXPECT_EQ(Press(kDeviceDeleteButton, {0, 3, 4, 5}),
              "2580|rmdir \"new one\"^kill \"a b.bas\"^kill \"c.bas\"^^^^\3files^");
    line->Board().AddFile("e.bas", "", 0);
    EXPECT_EQ(RowsToCome(), "..|A:/|<DIR>  kept");
    SetGadgetText(kFamilyCombo, "micromite+");  // its rows have no column for the name
    Press(kDeviceRefreshButton);
    EXPECT_EQ(RowsToCome(), "..|A:/|<DIR>  kept|00:00 00-00-1980          0  e.bas");
    EXPECT_EQ(Press(kDeviceDeleteButton, {2, 3}), "2180|rmdir \"kept\"^^^^\3files^");
    EXPECT_TRUE(TakeCapture().contains("Error : Dir is not empty"));
    answer.clear();
    for (const int button : {kDeviceDeleteButton, kCopyToPcButton, kDeviceNewFolderButton})
        EXPECT_EQ(Press(button), "0|");
    EXPECT_EQ(asked, QString("New folder|Name for new folder?").repeated(2));
    SetGadgetText(kFamilyCombo, "cmm2");
    AddGadgetItem(kDeviceList, "<DIR>  sub");
    EXPECT_EQ(Raise(kTypeLeftDoubleClick, DeviceListClicked, {GadgetItemCount(kDeviceList) - 1}),
              "400|chdir \"sub\"^ls^");
}

TEST_F(FileManager, FlashSlotsAreShownLoadedReadAndErased) {
    const std::string free = "current program|Slot 1 available|Slot 2 available|Slot 3 available";
    MakeFile("a.bas");
    PlugIn("picomite");
    OpenFileManager();
    EXPECT_EQ(GadgetText(kFlashViewButton), "memory");
    EXPECT_EQ(Press(kFlashViewButton),
              "660|^^\3files^^^\3"
              "flash list^");
    EXPECT_EQ(GadgetText(kFlashViewButton), "SDcard");
    EXPECT_EQ(RowsToCome(), free);
    Select(kPcList, {});
    Press(kCopyToDeviceButton);
    EXPECT_EQ(GadgetText(kNoticeText) + asked, "Select flash slot or main memory");
    Select(kPcList, {1});
    Press(kCopyToDeviceButton);  // the question comes once, and the answer is No
    EXPECT_FALSE(SlotUploadArmed());
    Press(kCopyToDeviceButton);
    EXPECT_EQ(
        asked,
        "Warning!|Copying to flash slot will also overwrite main memory. Do you want to continue?");
    EXPECT_TRUE(SlotUploadArmed());
    EXPECT_EQ(Raise(kTypeLeftClick, DeviceListClicked, {2}),
              "5840|autosave^PRINT 1^\x1a^FLASH OVERWRITE 2^^^^^\3"
              "flash list^");
    EXPECT_EQ(RowsToCome(), "current program");  // the returns that piled up meanwhile end it
    Press(kDeviceRefreshButton);
    EXPECT_EQ(RowsToCome(),
              "current program|Slot 1 available|Slot 2 in use: \"Print 1\"|Slot 3 available");
    EXPECT_EQ(Press(kCopyToPcButton, {2, 3}), "0|flash list 2^");
    Poll();  // no name is given: nothing is saved
    EXPECT_FALSE(deviceListing.savingProgram);
    EXPECT_EQ(Press(kDeviceDeleteButton, {2}), "2780|flash erase 2^^^^\3flash list^");
    EXPECT_EQ(RowsToCome(), free);
    EXPECT_EQ(Press(kDeviceDeleteButton, {0}), "1980|^^^\3flash list^");  // main memory stays

    Press(kCopyToDeviceButton);  // armed again
    for (const int button : {kCopyToPcButton, kDeviceDeleteButton, 0}) {
        Poll();
        StartDeviceRows("current program");
        ParseListingChunk("\r\nno row\r\n Slot 1 in use\r\n> ");
        EXPECT_EQ(button == 0 ? Raise(kTypeLeftClick, DeviceListClicked, {2}) : Press(button, {2}),
                  "660|^^\3flash list^");
        EXPECT_TRUE(
            TakeCapture().endsWith("Row 2 shows slot 1: nothing was sent, the list is read anew."));
    }
    EXPECT_TRUE(SlotUploadArmed());
    Press(kFlashViewButton);
    SetGadgetText(kFamilyCombo, "micromite");
    EXPECT_EQ(Press(kDeviceRefreshButton),
              "260|^^\3");  // no drive: flash view, of main memory alone
    EXPECT_EQ(Rows(), "current program");
    Press(kFlashViewButton);
    EXPECT_TRUE(deviceListing.flashView);
}

// Bytes come one by one: waits end inside sequences, polls inside prompts and echoes.
TEST_F(FileManager, OnASlowLineTheSlotsKeepTheirRows) {
    OpenFileManager();
    for (const int msPerByte : {91, 67, 59, 42, 33, 25, 17}) {
        PlugIn("picomite", msPerByte);
        ToggleFlashView();
        Poll();
        EXPECT_EQ(Rows(), "current program|Slot 1 available|Slot 2 available|Slot 3 available")
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
    EXPECT_EQ(Rows(), "");  // with no link the list is left alone
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
    Press(kPcNewFolderButton);
    EXPECT_TRUE(QDir(folder.path() + "/made").exists());
    SetGadgetText(kPcList, folder.path());
    Select(kPcList, {0, 1, 2, 3});  // "..", made, sub and a.bas
    Press(kCopyToDeviceButton);
    EXPECT_TRUE(TakeCapture().startsWith("Processing file: " + folder.path() + "/a.bas"));
    Select(kPcList, {0, 1, 2, 3});
    Press(kPcDeleteButton);
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
    Press(kEditFileButton);  // none is selected
    Select(kPcList, {1});
    Press(kEditFileButton);
    EXPECT_TRUE(
        ServeUntil([&] { return ScratchFolder::Get(made).endsWith('\n'); }, [](int32_t) {}));
    EXPECT_EQ(ScratchFolder::Get(made), "1" + path.toUtf8() + "\n");
}

QString PlaceOf(int gadget) {
    return QString(" %1,%2 %3x%4")
        .arg(GadgetX(gadget))
        .arg(GadgetY(gadget))
        .arg(GadgetWidth(gadget))
        .arg(GadgetHeight(gadget));
}

// Number, place, text, tip, and a name that is not the tip.
const char looks[] = R"(Kewlink File Commander
162 0,0 300x197 /||Files on the PC
163 304,0 386x197 ||Files on the device
164 5,80 690x197 ||Panes
166 5,5 280x40 ||PC toolbar
167 340,5 360x70 ||Device toolbar
168 225,2 50x25 >>>|Copy selected files to Maximite|
169 2,2 50x25 <<<|Copy selected files to PC|
170 55,2 50x25 Del||Delete selected files on device
171 105,2 90x25 New folder|Create new folder on Maximite|
172 5,2 50x25 Del|Delete selected files on Maximite|Delete selected files on PC
173 60,2 90x25 New folder|Create new folder on PC|
174 305,2 50x25 memory|switch from SDcard to flash memory|
178 200,2 60x25 Refresh|Refresh Maximite file list|
179 285,7 50x25 Abort|Abort current transfer|
180 5,45 400x30 /||PC folder
181 75,30 400x30 picomite||picomite
182 155,2 50x25 Edit|Edit selected file|
)";

TEST_F(FileManager, HoldsItsGadgetsAndKeepsItsPlace) {
    SetPcFolder("/no/such/folder/");
    ShowTerminalMode(kModeFileManager);
    for (const int column : {0, 1, 2}) SetPcColumnWidth(column, 110 + column);
    OpenFileManager();
    EXPECT_EQ(GadgetColumnWidth(kPcList, 0) + GadgetColumnWidth(kPcList, 2), 222);
    EXPECT_EQ(FocusedGadget(), kDeviceList);
    EXPECT_NE(fileManagerSettings.pcFolder, "/no/such/folder/");
    for (const int gadget : {kPcList, kPcPathEntry}) SetGadgetText(gadget, "/");
    QString look = WidgetOfWindow(kFileManagerWindow)->windowTitle() + '\n';
    for (int gadget = kPcList; gadget <= kEditFileButton; ++gadget) {
        if (!GadgetExists(gadget)) continue;
        const QString tip = GadgetTooltip(gadget), name = GadgetName(gadget);
        look += QString::number(gadget) + PlaceOf(gadget) + ' ' + GadgetText(gadget) + '|' + tip +
                '|' + (name == tip ? "" : name) + '\n';
    }
    EXPECT_EQ(look.toStdString(), looks);
    ResizeNumberedWindow(kFileManagerWindow, 30, 40, 900, 400);
    SetGadgetState(kPaneSplitter, 420);
    for (const int column : {0, 1}) SetGadgetColumnWidth(kPcList, column, 77 + column);
    ResizeFileManager();
    look.clear();
    for (const int gadget : {kPaneSplitter, kPcToolbar, kDeviceToolbar, kCopyToDeviceButton,
                             kFlashViewButton, kAbortTransferButton})
        look += PlaceOf(gadget);
    EXPECT_EQ(look.toStdString(),
              " 5,80 890x310 5,5 400x40 460,5 440x70 345,2 50x25 385,2 50x25 405,7 50x25");
    CloseFileManager();
    const FileManagerSettings& kept = fileManagerSettings;
    EXPECT_EQ(std::vector<int>({kept.x, kept.y, kept.width, kept.height, kept.splitter,
                                kept.columns[0], kept.columns[1], kept.columns[2]}),
              std::vector<int>({30, 40, 900, 400, 420, 77, 78, 112}));
    EXPECT_EQ(GadgetText(kModeText), "VT Terminal");
    EXPECT_EQ(terminalMode, 0);
}

}  // namespace
