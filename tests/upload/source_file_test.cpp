#include <unistd.h>

#include "tests/support/ScratchFolder.h"
#include "tests/upload/upload_bench.h"
#include "upload/LoadPath.h"
#include "upload/SourceFile.h"

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

// A family whose end code runs the program gets another code; the next load runs it again.
TEST_F(SourceFile, StorePathLeavesOutRun) {
    FarEnd line;
    Serve(line);
    ScratchFolder::Put("p.bas", "'target s\\cmm2\n");
    for (const auto& load : {StorePath, LoadPath}) {
        received.clear();
        load("p.bas");
        ASSERT_GE(received.size(), 5u);
        EXPECT_EQ(received.substr(received.size() - 5),
                  load == StorePath ? "\x1b[11~" : "\x1b[12~");
    }
}

}  // namespace
