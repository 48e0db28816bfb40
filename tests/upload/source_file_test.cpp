#include <sys/stat.h>

#include <QFile>
#include <QTemporaryDir>

#include "tests/upload/upload_bench.h"

class SourceFile : public UploadBench {
  protected:
    QTemporaryDir folder;

    QString Write(const char* name, const QByteArray& bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
};

TEST_F(SourceFile, IsReadByteByByteAndBounded) {
    QByteArray all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    SetPasteSource(true);
    const QString text = ReadSourceFile(Write("all.bas", all));
    EXPECT_TRUE(text.size() == 256 && text.toLatin1() == all && !uploadSource.pasteSource);
    const QString made = folder.filePath("new.bas");
    EXPECT_EQ(ReadSourceFile("") + ReadSourceFile(made) + Printed(), "");
    ASSERT_EQ(truncate(made.toUtf8().constData(), kLargestSource), 0);  // and so created
    EXPECT_EQ(ReadSourceFile(made).size(), kLargestSource);
    ASSERT_EQ(truncate(made.toUtf8().constData(), kLargestSource + 1LL), 0);
    LoadPath(made);
    EXPECT_EQ(Printed(2), "File is larger than 64 MB and is not uploaded.|Nothing to load.");
}

// None of these may hang or leave anything behind, and each is told in one line.
TEST_F(SourceFile, WhatIsNoFileFails) {
    const QString fifo = folder.filePath("fifo");
    ASSERT_EQ(mkfifo(fifo.toUtf8().constData(), 0600), 0);
    int failures = 0;
    for (const QString& path : {fifo, folder.path(), QString("/dev/null"), QString("/dev/tty"),
                                QString("/no/such/folder/x"), folder.filePath("a") + QChar(0)}) {
        EXPECT_EQ(ReadSourceFile(path), "");
        EXPECT_EQ(Printed().count("File read failed!!"), ++failures) << path.toStdString();
    }
    EXPECT_FALSE(QFile::exists(folder.filePath("a")));
}

TEST_F(SourceFile, LoadPathUploadsOrTouches) {
    FarEnd line;
    Serve(line);
    LoadPath("");
    EXPECT_EQ(Printed(), "");
    LoadPath(Write("Prog.BAS", "'target s\\cmm2\n\xe9\r\n"));
    EXPECT_EQ(received,
              "\3NEW\r\nAUTOSAVE \"Prog.BAS\"\r\n'target s\\cmm2\r\n\xe9\r\n\r\n\x1b[12~");
    EXPECT_TRUE(Printed().startsWith(folder.filePath("Prog.BAS") + "|Upload started"));
    LoadPath(folder.filePath("board.UF2"));  // not read, and not created
    EXPECT_FALSE(QFile::exists(folder.filePath("board.UF2")));
    EXPECT_EQ(Printed(2), folder.filePath("board.UF2") + "|port not set");
}
