// What boards print in answer to their list command, and what each kind of line does.
#include "tests/filemanager/file_manager_rig.h"

namespace {

const struct {
    const char *family, *text, *rows;
} listings[] = {
    {"picomite",  // 6.03
     "A:/games\r\n   <DIR>  sub\r\n10:07 21-06-2025       1234  prog.bas\r\n"
     "1 directory, 1 file, 13017088 bytes free\r\n> \x1b[?7h",
     "..|A:/games|<DIR>  sub|10:07 21-06-2025       1234  prog.bas"},
    {"PicoMite",  // 6.00.02, a card, a time that is none, an error's prompt
     "B:/\r\n00:00 00-00-1980          0  my, file name.txt\r\n"
     "2 directories, 5 files\r\n\x1b[?25h\x1b[97;40m> ",
     "..|B:/|00:00 00-00-1980          0  my, file name.txt"},
    {"picomite",  // two pauses, the second right before the summary
     "A:/\r\n   <DIR>  b>c\r\nPRESS ANY KEY ...\r                 \r   <DIR>  c\r\n"
     "PRESS ANY KEY ...\r                 \r2 directories, 0 files, 1 bytes free\r\n> ",
     "..|A:/|<DIR>  b>c|<DIR>  c"},
    {"picomite",  // 6.03: a prompt that nobody saw, one behind Ctrl-C, and the echo
     "\x1b[97;40m> \x1b[?7h\x1b[?25h\x1b[97;40m\r\n> \x1b[?7hflash list\r\n"
     " Slot 1 in use: \"Print \"hello\"\"\r\n Slot 2 available\r\n> \x1b[?7h",
     "..|Slot 1 in use: \"Print \"hello\"\"|Slot 2 available"},
    {"cmm2",
     "A:/\r\n   <DIR>  sub\r\n\x1b[37mno row\r\n10:07 21-06-2025       1234  prog.bas\r\n"
     "1 directory, 1 file\r\n\x1b[?25h\x1b[37m\x1b[m\r\n> ",
     "..|A:/|<DIR>  sub|10:07 21-06-2025       1234  prog.bas"},
    {"maximite", "PROG.BAS 1234\r\nOTHER.BAS 99\r\n> ", "..|PROG.BAS 1234|OTHER.BAS 99"},
    {"vgamite", "Error : SD card not present\r\n> ", ".."},
};

// The first piece, and then others of one size.
TEST_F(FileManager, EveryCutGivesTheSameRows) {
    OpenFileManager();
    for (const auto& row : listings) {
        SetGadgetText(kFamilyCombo, row.family);
        const QString text = row.text;
        for (const int size : {9999, 1, 2, 5, 13}) {
            for (int first = 0; first < text.size(); ++first) {
                ParseListingChunk("\n> ");
                StartDeviceRows("..");
                ParseListingChunk("\n");  // the command's own line end
                ParseListingChunk(text.left(first));
                for (int at = first; at < text.size(); at += size)
                    ParseListingChunk(text.mid(at, size));
                ASSERT_EQ(Rows(), row.rows) << first << ' ' << size;
            }
        }
    }
}

TEST_F(FileManager, APauseIsAnsweredEachTimeItIsSeenAndErrorsAreShown) {
    OpenFileManager();
    FarEnd device;
    clock.onTick = [](int64_t) { EXPECT_FALSE(linkStatus.pollingSuspended); };
    for (const char* piece : {"PRESS ANY", " KEY", " ...", "\rError : No path\r\n"})
        ParseListingChunk(piece);
    EXPECT_EQ(device.Read() + Printed(), "\r\r\rError : No path");
    EXPECT_EQ(clock.Now(), 260 + 300);  // the opened window's and three pauses'
    EXPECT_FALSE(linkStatus.pollingSuspended);
}

TEST_F(FileManager, AProgramIsSavedLineByLine) {
    OpenFileManager();
    const auto save = [this](const char* name, const char* file, const QStringList& chunks) {
        answer = name;
        RequestProgram(0);
        for (const QString& chunk : chunks) ParseListingChunk(chunk);
        EXPECT_TRUE(!deviceListing.savingProgram && deviceListing.programCapture.isEmpty());
        return ScratchFolder::Get(file).replace('\r', '^').toStdString() + Printed();
    };
    const QString plain = "list all\r\nEnd\r\n> ";
    EXPECT_EQ(save("a", "a.bas", {"list all\r\n  Print \"\xC3\xA9\"\r\nEnd\r\n\r\n> "}),
              "Print \"\xE9\"^End^[Save/*.bas]");
    // A cut line is there twice, its first piece too.
    EXPECT_EQ(save("b.txt", "b.txt", {"Pri", "nt 1\r\n> "}), "Pri^Print 1^[Save/*.bas]");
    SetGadgetText(kFamilyCombo, "cmm2");  // without slots the echo is no echo
    const std::string asks = "[Save/*.bas][File exists|Do you wish to overwrite it?]";
    EXPECT_EQ(save("b.txt", "b.txt", {plain}), "Pri^Print 1^" + asks);
    yes = true;
    EXPECT_EQ(save("b.txt", "b.txt", {plain}), "list all^End^" + asks);
    EXPECT_EQ(save("", "", {plain}), "[Save/*.bas]");
}

TEST_F(FileManager, AFloodIsHeldWithinItsBounds) {
    OpenFileManager();
    const QString block(5000, 'x');
    for (int i = 0; i < 50; ++i) ParseListingChunk(block);
    EXPECT_EQ(deviceListing.listingBuffer.size(), kLongestListingLine);
    ParseListingChunk("\n" + QString("y\n").repeated(30000));
    EXPECT_EQ(deviceListing.deviceEntries.size(), kMostDeviceEntries);
    RequestProgram(0);
    for (int i = 0; i < 1000; ++i) ParseListingChunk(block + "\n");
    EXPECT_EQ(deviceListing.programCapture.size(), kLargestProgramCapture / 5001 * 5001);
}

}  // namespace
