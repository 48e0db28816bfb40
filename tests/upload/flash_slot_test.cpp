// The upload to a flash slot, by the bytes and the times of each family.
#include "tests/upload/upload_bench.h"

namespace {

int64_t listedAt;

class FlashSlot : public UploadBench {
  protected:
    const ScratchFolder folder;

    FlashSlot() {
        AddDefaultFamilies();
        HideGadget(kProgressText, true);
        SetAfterFlashUpload([] { listedAt = linkStatus.quietTerminal ? -1 : NowMs(); });
    }

    // Clicks on the row: the milliseconds to the new list, "|", and what was sent.
    QString Upload(const char* family, const QByteArray& text, int slot) {
        SetGadgetText(kFamilyCombo, family);
        FlashSlotUpload(ScratchFolder::Put("f.bas", text), -1);
        EXPECT_TRUE(SlotUploadArmed() && !linkStatus.quietTerminal);
        received.clear();
        const int64_t start = clock.Now();
        FlashSlotUpload("", slot);
        EXPECT_FALSE(SlotUploadArmed() || linkStatus.quietTerminal || WindowIsOpen(kNoticeWindow) ||
                     uploadSource.pasteSource || GadgetHidden(kProgressText));
        return QString::number(listedAt - start) + '|' + Received();
    }
};

// In milliseconds: 20 for each echo, 3600 for the end code, 200 for each look at "Saved",
// 100 before the overwriting and 800, 120, 200 and 120 to the new list.
TEST_F(FlashSlot, TypesTheFileAndOverwritesTheSlot) {
    QString notice;
    onTick = [&] {
        EXPECT_TRUE(linkStatus.quietTerminal || received.back() == '\r');
        if (WindowIsOpen(kNoticeWindow)) notice = GadgetText(kNoticeText);
    };
    EXPECT_EQ(Upload("PicoMite", "'kwedit!!!\r\n  'echo X  \r\n'nap 9\rB", 2),
              "5220|autosave^  'echo X  ^'nap 9^B^\x1a^FLASH OVERWRITE 2^\r\r");
    EXPECT_EQ(notice + GadgetText(kProgressText), "Transfering now 1/3");
    EXPECT_TRUE(Printed().contains("autosave|>|Upload completed 1|Saved 9 bytes"));
    received.clear();
    FlashSlotUpload("", 2);  // what was read went out once
    EXPECT_EQ(Received() + Printed(1), "\r\rNothing to load.");
    FlashSlotUpload("f.bas", -1);
    FlashSlotUpload("/no/such/folder/x", -1);  // nor is anything left of it then
    EXPECT_FALSE(SlotUploadArmed() || linkStatus.quietTerminal);
    FlashSlotUpload("", 2);
    EXPECT_EQ(Printed(2), "File read failed!!|Nothing to load.");
    // Of a row's code the number alone counts; without a row it is the usual one.
    answer = [](char byte) { return byte == '\n' ? "\nSaved" : std::string(1, byte); };
    EXPECT_EQ(Upload("cmm2", QByteArray("B\n").repeated(19), 0),
              "5440|autosave^" + QString("B^").repeated(19) + "\x1b^\r\r");
    EXPECT_EQ(GadgetText(kProgressText), "10/19");
    EXPECT_EQ(Upload("maximite", "A", 0), "5080|auto^A^\3^\r\r");
    EXPECT_EQ(Upload("vgamite", "A", 0), "5080|autosave^A^\x1a^\r\r");
    onTick = [this] { RequestLeave(received.find('B') < 99); };
    EXPECT_EQ(Upload("picomite", "A\nB\nC\nD", 2), "60|autosave^A^B^");
    onTick = [] { RequestLeave(false); };
    clock.Sleep(1);
    EXPECT_EQ(Received(), "autosave^A^B^\3\r\r");
    // A board that says nothing is typed at to the end all the same.
    answer = [](char) { return std::string(); };
    EXPECT_EQ(Upload("picomite", "A", 1), "53180|autosave^A^\x1a^FLASH OVERWRITE 1^\r\r");
    EXPECT_TRUE(Printed().contains("Upload completed 201"));
    const QString row = "a|b|c|1|2|3|d|4|5|6|7";
    EXPECT_EQ(FormatFamilyRow(ParseFamilyRow(row)), row);
}

}  // namespace
