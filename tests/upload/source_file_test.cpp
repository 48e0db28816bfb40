#include <sys/stat.h>

#include <QDir>

#include "tests/support/ScratchFolder.h"
#include "tests/upload/upload_bench.h"

namespace {

class SourceFile : public UploadBench {
  protected:
    ScratchFolder folder;
};

TEST_F(SourceFile, IsReadByteByByteAndBounded) {
    QByteArray all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    SetPasteSource(true);
    const QString text = ReadSourceFile(ScratchFolder::Put("all.bas", all));
    EXPECT_TRUE(text.size() == 256 && text.toLatin1() == all && !uploadSource.pasteSource);
    EXPECT_EQ(ReadSourceFile("") + ReadSourceFile("new.bas") + Printed(), "");
    ASSERT_EQ(truncate("new.bas", kLargestSource), 0);  // and so created
    EXPECT_EQ(ReadSourceFile("new.bas").size(), kLargestSource);
    ASSERT_EQ(truncate("new.bas", kLargestSource + 1LL), 0);
    LoadPath("new.bas");
    EXPECT_EQ(Printed(2), "File is larger than 64 MB and is not uploaded.|Nothing to load.");
}

// None of these may hang or leave anything behind, and each is told in one line.
TEST_F(SourceFile, WhatIsNoFileFails) {
    ASSERT_EQ(mkfifo("fifo", 0600), 0);
    int failures = 0;
    for (const QString& path :
         {QString("fifo"), QString("."), QString("/dev/null"), QString("/dev/tty"),
          QString("/no/such/folder/x"), QString("a") + QChar(0)}) {
        EXPECT_EQ(ReadSourceFile(path), "");
        EXPECT_EQ(Printed().count("File read failed!!"), ++failures) << path.toStdString();
    }
    EXPECT_FALSE(QFile::exists("a"));
}

TEST_F(SourceFile, LoadPathUploadsOrTouches) {
    FarEnd line;
    Serve(line);
    LoadPath("");
    EXPECT_EQ(Printed(), "");
    LoadPath(ScratchFolder::Put("Prog.BAS", "'target s\\cmm2\n\xe9\r\n"));
    EXPECT_EQ(received,
              "\3NEW\r\nAUTOSAVE \"Prog.BAS\"\r\n'target s\\cmm2\r\n\xe9\r\n\r\n\x1b[12~");
    EXPECT_TRUE(Printed().startsWith("Prog.BAS|Upload started"));
    LoadPath("board.UF2");  // not read, and not created
    EXPECT_FALSE(QFile::exists("board.UF2"));
    EXPECT_EQ(Printed(2), "board.UF2|port not set");
}

}  // namespace
