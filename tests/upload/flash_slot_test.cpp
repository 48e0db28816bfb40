#include <QTemporaryFile>

#include "tests/upload/upload_bench.h"
#include "upload/DeviceFamily.h"
#include "upload/FlashSlotUpload.h"

static int64_t listedAt;

class FlashSlot : public UploadBench {
  protected:
    FarEnd line;

    FlashSlot() {
        Serve(line);
        AddDefaultFamilies();
        SetAfterFlashUpload([] { listedAt = linkStatus.quietTerminal ? -1 : NowMs(); });
    }

    // Reads `text` from a file, clicks on the row, gives the milliseconds to the new list.
    int64_t Upload(const char* family, const char* text, int slot) {
        QTemporaryFile file;
        EXPECT_TRUE(file.open() && file.write(text) >= 0 && file.flush());
        SetGadgetText(kFamilyCombo, family);
        FlashSlotUpload(file.fileName(), -1);
        EXPECT_TRUE(SlotUploadArmed() && !linkStatus.quietTerminal);
        received.clear();
        const int64_t start = clock.Now();
        FlashSlotUpload("", slot);
        EXPECT_FALSE(SlotUploadArmed() || linkStatus.quietTerminal || WindowIsOpen(kNoticeWindow));
        return listedAt - start;
    }
};

constexpr int kStep = 20;
constexpr int kEnd = 30 * 120;
constexpr int kPoll = 200;  // for "Saved"
constexpr int kFinish = 800 + 120 + 200 + 120;

TEST_F(FlashSlot, TypesTheFileAndOverwritesTheSlot) {
    bool quiet = true;
    onTick = [&](int64_t) {
        quiet = quiet && (linkStatus.quietTerminal || received.back() == '\r');
    };
    EXPECT_EQ(Upload("PicoMite", "'kwedit!!!\r\n  'echo X  \r\n'nap 9\rB", 2),
              4 * kStep + kEnd + kPoll + 100 + kFinish);
    EXPECT_EQ(received,
              "autosave\r\n  'echo X  \r\n'nap 9\r\nB\r\n\x1a\r\nFLASH OVERWRITE 2\r\n\r\r");
    EXPECT_TRUE(quiet);
    EXPECT_TRUE(Printed().contains("autosave|>|Upload completed 1|Saved 9 bytes"));
    EXPECT_FALSE(GadgetHidden(kProgressText));  // left showing
    EXPECT_EQ(GadgetText(kProgressText), " 1/3");
    received.clear();
    FlashSlotUpload("", 2);  // what was read went out once
    EXPECT_EQ(received + Printed(1).toStdString(), "\r\rNothing to load.");
    FlashSlotUpload("/no/such/folder/x", -1);
    FlashSlotUpload("", -1);
    EXPECT_FALSE(SlotUploadArmed() || linkStatus.quietTerminal);
    EXPECT_EQ(Printed(1), "File read failed!!");
    answer = Silence;  // it is typed at to the end all the same
    EXPECT_EQ(Upload("picomite", "A", 1), 2 * 201 * kStep + kEnd + 201 * kPoll + 100 + kFinish);
    EXPECT_TRUE(Printed().contains("Upload completed 201"));
    EXPECT_EQ(received, "autosave\r\nA\r\n\x1a\r\nFLASH OVERWRITE 1\r\n\r\r");
}

TEST_F(FlashSlot, TakesItsMethodFromTheRow) {
    answer = [](char byte) { return byte == '\n' ? "\nSaved" : std::string(1, byte); };
    const std::pair<const char*, const char*> rows[] = {
        {"cmm2", "autosave\r\nA\r\n\x1b\r\n\r\r"},  // of its code the number alone
        {"maximite", "auto\r\nA\r\n\3\r\n\r\r"},
        {"vgamite", "autosave\r\nA\r\n\x1a\r\n\r\r"},  // no row
        {"command", "\r\nA\r\n\r\n\r\r"},              // no code
    };
    for (const auto& [family, expected] : rows) {
        Upload(family, "A", 0);
        EXPECT_EQ(received, expected) << family;
    }
}
