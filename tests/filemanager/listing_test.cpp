// What boards print in answer to their list command, in every way that a line can be cut
// into chunks, and what each kind of line does.
#include "tests/filemanager/file_manager_rig.h"

namespace {

struct ListingParser : FileManager {
    ListingParser() {
        SetLineEnding("CRLF");
        OpenFileManager();
    }

    // The list that a text gives when it comes in pieces, the first one and then others of one
    // size. What the one before left in the buffer is gone at the prompt.
    static std::string ListOf(const QString& text, int first, int size) {
        ParseListingChunk("\n> ");
        StartDeviceRows("..");
        ParseListingChunk("\n");  // the command's own line end
        ParseListingChunk(text.left(first));
        for (int from = first; from < text.size(); from += size)
            ParseListingChunk(text.mid(from, size));
        return Rows();
    }
};

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
    {"picomite",  // a console of 40 columns breaks the row
     "A:/\r\n10:07 21-06-2025       1234  a_rather_l\r\nong_name.bas\r\n"
     "0 directories, 1 file, 9 bytes free\r\n> ",
     "..|A:/|10:07 21-06-2025       1234  a_rather_l|ong_name.bas"},
    {"picomite",  // two pauses, the second right before the summary
     "A:/\r\n   <DIR>  b>c\r\nPRESS ANY KEY ...\r                 \r   <DIR>  c\r\n"
     "PRESS ANY KEY ...\r                 \r2 directories, 0 files, 1 bytes free\r\n> ",
     "..|A:/|<DIR>  b>c|<DIR>  c"},
    {"picomite", " Slot 1 in use: \"Print \"hello\"\"\r\n Slot 2 in use\r\n Slot 3 available\r\n> ",
     "..|Slot 1 in use: \"Print \"hello\"\"|Slot 2 in use|Slot 3 available"},
    {"picomite",  // 6.03: a prompt that nobody saw, one behind Ctrl-C, and the echo
     "\x1b[97;40m> \x1b[?7h\x1b[?25h\x1b[97;40m\r\n> \x1b[?7hflash list\r\n"
     " Slot 1 in use\r\n Slot 2 available\r\n> \x1b[?7h",
     "..|Slot 1 in use|Slot 2 available"},
    {"cmm2",
     "A:/\r\n   <DIR>  sub\r\n\x1b[37mno row\r\n10:07 21-06-2025       1234  prog.bas\r\n"
     "1 directory, 1 file\r\n\x1b[?25h\x1b[37m\x1b[m\r\n> ",
     "..|A:/|<DIR>  sub|10:07 21-06-2025       1234  prog.bas"},
    {"micromite+", "A:/\r\n   <DIR>  sub\r\n      1234  prog.bas\r\n1 directory, 1 file\r\n> ",
     "..|A:/|<DIR>  sub|1234  prog.bas"},
    {"maximite", "PROG.BAS 1234\r\nOTHER.BAS 99\r\n> ", "..|PROG.BAS 1234|OTHER.BAS 99"},
    {"vgamite", "Error : SD card not present\r\n> ", ".."},
};

TEST_F(ListingParser, EveryCutGivesTheSameRows) {
    for (const auto& row : listings) {
        SetGadgetText(kFamilyCombo, row.family);
        for (const int size : {9999, 1, 2, 5, 13}) {
            for (int first = 0; first < int(strlen(row.text)); ++first)
                ASSERT_EQ(ListOf(row.text, first, size), row.rows) << first << ' ' << size;
        }
    }
}

TEST_F(ListingParser, APauseIsAnsweredEachTimeItIsSeenAndErrorsAreShown) {
    FarEnd device;
    clock.onTick = [](int64_t) { EXPECT_FALSE(linkStatus.pollingSuspended); };
    ParseListingChunk("PRESS ANY");
    EXPECT_EQ(device.Read(), "");
    ParseListingChunk(" KEY");
    ParseListingChunk(" ...");
    EXPECT_EQ(device.Read(), "\r\n\r\n");
    EXPECT_EQ(clock.Now(), 260 + 200);  // the opened window's and two pauses'
    EXPECT_FALSE(linkStatus.pollingSuspended);
    ParseListingChunk("\rError : Could not find the path\r\n");
    EXPECT_EQ(TakeCapture(), "Error : Could not find the path");
}

TEST_F(ListingParser, AProgramIsSavedLineByLine) {
    const auto save = [this](const char* name, const QStringList& chunks) {
        choice.path = name;
        RequestProgram(0);
        for (const QString& chunk : chunks) ParseListingChunk(chunk);
        EXPECT_FALSE(deviceListing.savingProgram);
        EXPECT_EQ(deviceListing.programCapture, "");
    };
    save("a", {QString::fromLatin1("list all\r\n  Print \"\xe9\"\r\nEnd\r\n\r\n> ")});
    EXPECT_EQ(ScratchFolder::Get("a.bas"), "Print \"\xe9\"\r\nEnd\r\n");
    save("b.txt", {"Pri", "nt 1\r\n> "});  // a cut line is there twice, its first piece too
    EXPECT_EQ(ScratchFolder::Get("b.txt"), "Pri\r\nPrint 1\r\n");
    SetGadgetText(kFamilyCombo, "cmm2");
    save("b.txt", {"list all\r\nEnd\r\n> "});
    EXPECT_EQ(Printed(),
              "[Save/*.bas][Save/*.bas][Save/*.bas][File exists|Do you wish to overwrite it?]");
    EXPECT_EQ(ScratchFolder::Get("b.txt"), "Pri\r\nPrint 1\r\n");  // the answer was No
    yes = true;
    save("b.txt", {"list all\r\nEnd\r\n> "});
    EXPECT_EQ(ScratchFolder::Get("b.txt"),
              "list all\r\nEnd\r\n");  // without slots the echo is no echo
    save("", {"End\r\n> "});
}

TEST_F(ListingParser, AFloodIsHeldWithinItsBounds) {
    const QString block(5000, 'x');
    for (int i = 0; i < 50; ++i) ParseListingChunk(block);
    EXPECT_LE(deviceListing.listingBuffer.size(), kLongestListingLine);
    ParseListingChunk("\n");
    for (int i = 0; i < 3; ++i) ParseListingChunk(QString("y\n").repeated(10000));
    EXPECT_EQ(deviceListing.deviceEntries.size(), kMostDeviceEntries);
    RequestProgram(0);
    for (int i = 0; i < 1000; ++i) ParseListingChunk(block + "\n");
    EXPECT_LE(deviceListing.programCapture.size(), kLargestProgramCapture);
}

}  // namespace
