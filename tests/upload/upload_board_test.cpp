// Uploads to the simulated boards: the program arrives in memory and runs.
#include "tests/support/BoardOnLine.h"

#include <QTemporaryFile>

#include "link/LinkSeams.h"
#include "tests/upload/upload_bench.h"
#include "ui/windows/Dialogs.h"
#include "upload/DeviceFamily.h"
#include "upload/FlashSlotUpload.h"

namespace {

class UploadToBoard : public UploadBench {
  protected:
    std::unique_ptr<BoardOnLine> board;

    void Plug(const char* family, const simulator::BoardSetup& setup = simulator::BoardSetup()) {
        board.reset();  // the clock serves one at a time
        board = std::make_unique<BoardOnLine>(family, clock, setup);
        AdoptTcpLink(board->TakeNearEnd());
        SetDeviceOnTcpip(true);
    }
};

const char* const program =
    "' A loop\r\nA = 0\r\nFOR I = 1 TO 4\r\n  A = A + I\r\nNEXT I\r\nPRINT \"sum\"; A\r\n";

TEST_F(UploadToBoard, ArrivesAndRunsOnEachFamily) {
    // clang-format off
    const std::pair<const char*, const char*> boards[] = {
        {"picomite", "s\\picomite"}, {"picomite-6.00", "s\\pico"}, {"picocalc", "s\\pico"},
        {"armmite", "s\\micromite le\\lf"}, {"micromite+", "s\\micromite+ le\\cr"},
        {"maximite", "s\\maximite"},
        {"pi-cromite", "s\\pi le\\crlf"}, {"cmm2", "s\\cmm2 file\\sum.bas"},
    };
    // clang-format on
    for (const auto& [name, spec] : boards) {
        Plug(name);
        EXPECT_TRUE(Send(spec, program, 4).contains("sum 10")) << name << board->Sent();
        std::string kept = board->Board().ProgramText();
        if (kept.empty()) board->Board().ReadFile("sum.bas", &kept);
        EXPECT_NE(kept.find("A = A + I"), std::string::npos) << name << ": " << kept;
    }
}

TEST_F(UploadToBoard, TroubleOnTheLineEndsInTime) {
    simulator::BoardSetup slow, flood, cut, locked;
    slow.faults.delayMs = 700;
    flood.faults.storm = {"> flood\r\n", 1};
    cut.faults.cutAfterBytes = 60;
    locked.pin = 1234;
    DialogAnswers answers;
    answers.text = [](const QString&, const QString&, const QString&) { return QString("1234"); };
    AnswerDialogs(&answers);
    for (const simulator::BoardSetup& setup : {slow, locked, flood, cut}) {
        Plug("picomite", setup);
        EXPECT_LT(Send("s\\pico", program).section('|', 0, 0).toInt(), 360 + 9 * 4020 + 5100);
        const bool sound = setup.pin != 0 || setup.faults.delayMs != 0;
        EXPECT_TRUE(!sound || board->Board().ProgramText().size() > 60) << board->Sent();
    }
    AnswerDialogs(nullptr);
}

TEST_F(UploadToBoard, ToAFlashSlot) {
    Plug("picomite");
    AddDefaultFamilies();
    SetGadgetText(kFamilyCombo, "picomite");
    QTemporaryFile file;
    ASSERT_TRUE(file.open() && file.write(program) > 0 && file.flush());
    FlashSlotUpload(file.fileName(), -1);
    FlashSlotUpload("", 2);
    EXPECT_TRUE(SendAndWait("FLASH LIST\r", 2000).contains("Slot 2 in use: \"' A loop"))
        << board->Sent();
    EXPECT_NE(board->Board().ProgramText(), "");
}

}  // namespace
