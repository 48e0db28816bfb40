// The window and its buttons.
#include "tests/filemanager/file_manager_rig.h"

namespace {

TEST_F(FileManager, FoldersAndFilesComeAndGo) {
    PlugIn();
    answer = "a b";
    // A click alone selects; the row "A:/" is no folder that could be entered.
    Follow(R"(open: 660 ^^<3>files^ -> ..|A:/
folder: 2980 mkdir "a b"^^^^<3>files^ [New folder|Name for new folder?] -> ..|A:/|<DIR> a b
click 2: 0
double 2: 400 chdir "a b"^files^ -> ..|A:/a b
double 1: 0
double 0: 400 chdir ".."^files^ -> ..|A:/|<DIR> a b)");
    for (const char* name : {"kept/d.bas", "c d.bas", "e.bas"})
        board.AddFile(name, "PRINT 1\r\n", 0);
    // The row ".." holds no name where names stand.
    Follow(R"(refresh: 660 ^^<3>files^ -> ..|A:/|<DIR> a b|<DIR> kept
    |00:00 00-00-1980 9 c d.bas|00:00 00-00-1980 9 e.bas
delete 0 2 4 5: 2580 rmdir "a b"^kill "c d.bas"^kill "e.bas"^^^^<3>files^ -> ..|A:/|<DIR> kept)");
    board.AddFile("e.bas", "", 0);
    SetGadgetText(kFamilyCombo, "micromite+");  // its rows have no column for the name
    answer.clear();
    Follow(R"(refresh: 660 ^^<3>files^ -> ..|A:/|<DIR> kept|00:00 00-00-1980 0 e.bas
delete 2 3: 2180 rmdir "kept"^^^^<3>files^ rmdir "kept"^ Error : Dir is not empty^ > ^ >
delete: 0
fetch: 0
folder: 0 [New folder|Name for new folder?])");
    SetGadgetText(kFamilyCombo, "cmm2");
    AddGadgetItem(kDeviceList, "<DIR>  sub");
    Follow(R"(double 4: 400 chdir "sub"^ls^
     Error : Could not find the pathError : Unknown command -> ..)");
}

TEST_F(FileManager, FlashSlotsAreShownLoadedReadAndErased) {
    ScratchFolder::Put("a.bas", "PRINT 1\n");
    PlugIn();
    // The question comes once, and the answer is No.
    Follow(R"(open: 660 ^^<3>files^ -> ..|A:/
view: 660 ^^<3>flash list^ -> current program|Slot 1 available|Slot 2 available|Slot 3 available
send: 0
send 0: 0
     [Warning!|Copying to flash slot will also overwrite main memory. Do you want to continue?])");
    EXPECT_EQ(GadgetText(kNoticeText), "Select flash slot or main memory");
    EXPECT_FALSE(SlotUploadArmed());
    // The returns that pile up behind an upload end the list that is asked for. No name is given
    // for what is fetched: nothing is saved. Main memory stays. The last step arms again.
    Follow(R"(send 1: 0
click 2: 5840 autosave^PRINT 1^<1A>^FLASH OVERWRITE 2^^^^^<3>flash list^
     autosave^ Upload completed 1Saved 22 bytes^ > -> current program
refresh: 660 ^^<3>flash list^
     -> current program|Slot 1 available|Slot 2 in use: "Print 1"|Slot 3 available
fetch 2 3: 0 flash list 2^ [Save/*.bas]
delete 2: 2780 flash erase 2^^^^<3>flash list^
     -> current program|Slot 1 available|Slot 2 available|Slot 3 available
delete 0: 1980 ^^^<3>flash list^
send 1: 0)");
    for (const QString act : {"fetch", "delete", "click"}) {
        StartDeviceRows("current program");
        ParseListingChunk("\r\nno row\r\n Slot 1 in use\r\n> ");
        Follow(act + R"( 2: 660 ^^<3>flash list^
     Row 2 shows slot 1: nothing was sent, the list is read anew.
     -> current program|Slot 1 available|Slot 2 available|Slot 3 available)");
    }
    EXPECT_TRUE(SlotUploadArmed() && !deviceListing.savingProgram);
    Follow("view: 660 ^^<3>files^ -> ..|A:/");
    SetGadgetText(kFamilyCombo, "micromite");  // no drive: flash view, of main memory alone
    Follow("refresh: 260 ^^<3> -> current program\nview: 260 ^^<3>");
}

TEST_F(FileManager, BothPcGadgetsStandOnOneFolder) {
    for (const char* name : {"a.bas", "b.txt"}) ScratchFolder::Put(name, "PRINT 1\n");
    QDir().mkdir("sub");
    OpenFileManager();
    EXPECT_EQ(Rows(), "");  // with no link the list is left alone
    QString stands;
    const auto type = [&](int64_t event, const char* text) {
        SetGadgetText(kPcPathEntry, folder + text);
        Raise(event, PathBoxChanged);
        stands += GadgetText(kPcList) + ' ' + fileManagerSettings.pcFolder + '|';
    };
    type(kTypePathChosen, "/sub");
    type(kTypePathChanged, "/su");  // typed half: the list stays
    SetGadgetText(kPcList, folder);
    Raise(kTypeValueChanged, PcListChanged);
    stands += GadgetText(kPcPathEntry) + '|';
    type(kTypePathChanged, "/sub");  // taken for the list's echo
    EXPECT_EQ(Plain(stands), "~/sub/ ~/sub/|~/sub/ ~/su/|~/|~/ ~/|");
    answer = "made";
    Follow("PC-folder: 0 [New folder|Name for new folder?]");
    SetGadgetText(kPcList, folder);
    Follow(R"(send 0 1 2 3: 2240
     Processing file: ~/a.basnot set failed!Check port then try again
PC-delete 0 1 2 3: 0)");
    EXPECT_EQ(Rows(kPcList), "..|made|sub|b.txt");
    // The editor, with the selected file; at first none is selected.
    ScratchFolder::Put("KWEdit", "#!/bin/sh\necho $#$1 >" + folder.toUtf8() + "/told");
    QFile::setPermissions("KWEdit", QFile::ReadOwner | QFile::ExeOwner);
    const_cast<AppPaths&>(appPaths).programFolder = folder + "/";
    for (const char* step : {"edit", "edit 3"}) Act(step);
    const QByteArray told = "1" + folder.toUtf8() + "/b.txt\n";
    EXPECT_TRUE(ServeUntil([&] { return ScratchFolder::Get("told") == told; }, [](int32_t) {}));
    SetPcFolder("/elsewhere");
    CloseFileManager();
    EXPECT_EQ(fileManagerSettings.pcFolder, folder + "/");
}

QString PlaceOf(int gadget) {
    const QWidget* widget = WidgetOfGadget(gadget);
    const QPoint at = widget->mapTo(widget->window(), QPoint());
    return QString::asprintf(" %d,%d %dx%d", at.x(), at.y(), widget->width(), widget->height());
}

// Title and columns; number, place in the window, text, tip, and a name that is not the tip;
// places in a larger window; what is kept.
const char looks[] = R"(Kewlink File Commander 110 112
162 5,80 300x197 /||Files on the PC
163 309,80 386x197 ||Files on the device
164 5,80 690x197 ||Panes
166 5,5 280x40 ||PC toolbar
167 340,5 360x70 ||Device toolbar
168 230,7 50x25 >>>|Copy selected files to Maximite|
169 342,7 50x25 <<<|Copy selected files to PC|
170 395,7 50x25 Del||Delete selected files on device
171 445,7 90x25 New folder|Create new folder on Maximite|
172 10,7 50x25 Del|Delete selected files on Maximite|Delete selected files on PC
173 65,7 90x25 New folder|Create new folder on PC|
174 645,7 50x25 memory|switch from SDcard to flash memory|
178 540,7 60x25 Refresh|Refresh Maximite file list|
179 285,7 50x25 Abort|Abort current transfer|
180 5,45 400x30 /||PC folder
181 415,35 400x30 mine||mine
182 160,7 50x25 Edit|Edit selected file|
 5,80 890x310 5,5 400x40 460,5 440x70 350,7 50x25 845,7 50x25 405,7 50x25
30,40 900x400 420 77,78,112 VT Terminal)";

TEST_F(FileManager, HoldsItsGadgetsAndKeepsItsPlace) {
    SetPcFolder("/no/such/folder/");
    SetGadgetText(kFamilyCombo, "mine");
    ShowTerminalMode(kModeFileManager);
    for (const int column : {0, 1, 2}) SetPcColumnWidth(column, 110 + column);
    OpenFileManager();
    EXPECT_EQ(FocusedGadget(), kDeviceList);
    EXPECT_NE(fileManagerSettings.pcFolder, "/no/such/folder/");
    for (const int gadget : {kPcList, kPcPathEntry}) SetGadgetText(gadget, "/");
    QString look = WidgetOfWindow(kFileManagerWindow)->windowTitle();
    for (const int column : {0, 2})
        look += ' ' + QString::number(GadgetColumnWidth(kPcList, column));
    look += '\n';
    for (int gadget = kPcList; gadget <= kEditFileButton; ++gadget) {
        if (!GadgetExists(gadget)) continue;
        const QString tip = GadgetTooltip(gadget), name = GadgetName(gadget);
        look += QString::number(gadget) + PlaceOf(gadget) + ' ' + GadgetText(gadget) + '|' + tip +
                '|' + (name == tip ? "" : name) + '\n';
    }
    ResizeNumberedWindow(kFileManagerWindow, 30, 40, 900, 400);
    SetGadgetState(kPaneSplitter, 420);
    for (const int column : {0, 1}) SetGadgetColumnWidth(kPcList, column, 77 + column);
    ResizeFileManager();
    for (const int gadget : {kPaneSplitter, kPcToolbar, kDeviceToolbar, kCopyToDeviceButton,
                             kFlashViewButton, kAbortTransferButton})
        look += PlaceOf(gadget);
    CloseFileManager();
    const FileManagerSettings& s = fileManagerSettings;
    look += QString::asprintf("\n%d,%d %dx%d %d %d,%d,%d ", s.x, s.y, s.width, s.height, s.splitter,
                              s.columns[0], s.columns[1], s.columns[2]);
    EXPECT_EQ((look + GadgetText(kModeText)).toStdString(), looks);
    EXPECT_EQ(terminalMode, 0);
}

}  // namespace
