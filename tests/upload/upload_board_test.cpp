// Uploads to the simulated boards: the program arrives in memory and runs.
#include "tests/support/BoardOnLine.h"
#include "tests/upload/upload_bench.h"
#include "ui/windows/Dialogs.h"

namespace {

const struct {
    const char *board, *field;
    int pin, delayMs;
} boards[] = {
    {"picomite", "s\\picomite", 0, 0},
    {"picomite-6.00", "s\\pico", 1234, 0},
    {"picocalc", "s\\pico", 0, 700},
    {"armmite", "s\\micromite le\\lf", 0, 0},
    {"micromite+", "s\\micromite+ le\\cr", 0, 0},
    {"maximite", "s\\maximite", 0, 0},
    {"pi-cromite", "s\\pi le\\crlf", 0, 0},
    {"cmm2", "s\\cmm2 file\\sum.bas", 0, 0},
};

TEST_F(UploadBench, ArrivesAndRunsOnEachBoard) {
    DialogAnswers answers;
    answers.text = [](const QString&, const QString&, const QString&) { return QString("1234"); };
    AnswerDialogs(&answers);
    for (const auto& row : boards) {
        simulator::BoardSetup setup;
        setup.pin = row.pin;
        setup.faults.delayMs = row.delayMs;
        BoardOnLine board(row.board, clock, setup);
        const QString printed = Send(row.field,
                                     "' A loop\r\nA = 0\r\nFOR I = 1 TO 4\r\n  A = A + I\r\n"
                                     "NEXT I\r\nPRINT \"sum\"; A\r\n",
                                     4);
        EXPECT_TRUE(printed.contains("sum 10")) << row.board << board.Sent();
        std::string kept = board.Board().ProgramText();
        if (kept.empty()) board.Board().ReadFile("sum.bas", &kept);
        EXPECT_NE(kept.find("A = A + I"), std::string::npos) << row.board << ": " << kept;
    }
}

}  // namespace
