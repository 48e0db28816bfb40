#include "simulator/ProgramCommands.h"

#include "simulator/Board.h"
#include "simulator/files/FileCommands.h"

namespace simulator {

namespace {

void NewIsDone(Board& board) {
    ReturnToPrompt(board);
}

}  // namespace

// The flash is erased, which takes its time; then the plain prompt follows.
void RunNew(Board& board) {
    ClearVariables(board);
    ClearProgram(board);
    BusyThen(board, board.facts.flash.newMs, NewIsDone);
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

void RunClear(Board& board) {
    ClearVariables(board);
}

void RunCpu(Board& board) {
    if (TakeKeyword(board, "RESTART")) {
        RestartBoard(board);
    } else {
        Fail(board, "Syntax");
    }
}

void RunMemory(Board& board) {
    const size_t used = JoinProgram(board, "\n").size();
    Put(board,
        BoardFormat(
            "Program: %zu bytes in %zu lines, %zu bytes free\r\n", used, board.program.lines.size(),
            board.facts.flash.programBytes - std::min(used, board.facts.flash.programBytes)));
    Put(board,
        BoardFormat("Variables: %zu of %zu\r\n", board.basic.variables.size(), kMaximumVariables));
}

}  // namespace simulator
