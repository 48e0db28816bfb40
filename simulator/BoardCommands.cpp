#include "simulator/BoardCommands.h"

#include "simulator/Board.h"
#include "simulator/files/FileCommands.h"

namespace simulator {
namespace {

constexpr int kMaximumPin = 99999999;

// The sign-on's first line stands above the list, with its CR in front.
void ListOptions(Board& board) {
    Put(board, board.facts.signOn);
    NewLine(board);
    Put(board, board.facts.options);
    if (board.setup.sdCard) Put(board, "OPTION SDCARD GP22\r\n");
}

// The PIN is kept for the next start and isn't listed. Who sets it has given it.
void SetPin(Board& board) {
    const int pin = TakeInteger(board, 0, kMaximumPin);
    if (board.facts.prompt.pinDelayMs < 0) Fail(board, "Syntax");
    if (board.basic.failed) return;
    board.prompt.pin = pin;
    board.prompt.unlocked = true;
}

}  // namespace

// The flash is erased, which takes its time; then the plain prompt follows.
void RunNew(Board& board) {
    ClearVariables(board);
    ClearProgram(board);
    BusyThen(board, board.facts.flash.newMs, ReturnToPrompt);
}

// RUN, RUN "f", RUN "f", "args". The arguments have no reader here.
void RunRun(Board& board) {
    if (!AtStatementEnd(board)) {
        std::string path;
        if (!TakeProgramPath(board, &path)) return;
        if (TakeChar(board, ',')) TakeText(board);
        if (board.basic.failed || !LoadProgram(board, path)) return;
    }
    RunProgram(board);
}

void RunCpu(Board& board) {
    if (TakeKeyword(board, "RESTART")) return RestartBoard(board);
    Fail(board, "Syntax");
}

void RunOption(Board& board) {
    if (TakeKeyword(board, "LIST")) return ListOptions(board);
    if (TakeKeyword(board, "PIN")) return SetPin(board);
    Fail(board, "Only OPTION LIST and OPTION PIN are simulated");
}

}  // namespace simulator
