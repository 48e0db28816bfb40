// Commands on the board itself: its program, its options, its clock and the restart.
#include "simulator/Board.h"
#include "simulator/Listings.h"
#include "simulator/basic/BasicCommands.h"
#include "simulator/files/FileCommands.h"

namespace simulator {
namespace {

// The flash is erased, which takes its time; then the plain prompt follows.
void RunNew(Board& board) {
    ClearVariables(board);
    board.program.lines.clear();
    BusyThen(board, board.facts.flash.newMs, ReturnToPrompt);
}

void RunRun(Board& board) {
    std::string path;
    if (!AtStatementEnd(board) && (!TakeProgramPath(board, &path) || !LoadProgram(board, path)))
        return;
    RunProgram(board);
}

// The sign-on's first line stands above the list, with its CR in front.
void ListOptions(Board& board) {
    Put(board, board.facts.signOn);
    NewLine(board);
    Put(board, board.facts.options);
    if (board.setup.sdCard) Put(board, "OPTION SDCARD GP22\r\n");
}

// The PIN is kept for the next start and isn't listed. Who sets it has given it.
void SetPin(Board& board) {
    constexpr int kMaximumPin = 99999999;
    const int pin = TakeInteger(board, 0, kMaximumPin);
    if (board.facts.prompt.pinDelayMs < 0) Fail(board, "Syntax");
    if (board.basic.failed) return;
    board.prompt.pin = pin;
    board.prompt.unlocked = true;
}

void RunOption(Board& board) {
    if (TakeKeyword(board, "LIST")) return ListOptions(board);
    if (TakeKeyword(board, "PIN")) return SetPin(board);
    Fail(board, "Only OPTION LIST and OPTION PIN are simulated");
}

void RunCpu(Board& board) {
    if (TakeKeyword(board, "RESTART")) return RestartBoard(board);
    Fail(board, "Syntax");
}

// Where LS lists, FILES is a file manager on the whole screen.
void RunFilesCommand(Board& board) {
    if (!board.facts.cmm2) return RunFiles(board);
    Fail(board, "Its file manager is not in the simulated board: use LS");
}

constexpr auto kSlots = [](const BoardFacts& facts) { return facts.flash.slotMs > 0; };
constexpr auto kCmm2 = [](const BoardFacts& facts) { return facts.cmm2; };
constexpr auto kOldest = [](const BoardFacts& facts) {
    return !facts.receive.saysSaved && !facts.cmm2;
};
constexpr auto kNewer = [](const BoardFacts& facts) { return !kOldest(facts); };

}  // namespace

const CommandRows& BoardCommands() {
    static const CommandRows rows = {
        {"Auto", StartProgramReceive, false, kOldest},
        {"AutoSave", StartProgramReceive, false, kNewer},
        {"CPU", RunCpu},
        {"Date$", RunSetDate},
        {"Files", RunFilesCommand},
        {"Flash", RunFlash, false, kSlots},
        {"List", RunList},
        {"LS", RunFiles, false, kCmm2},
        {"New", RunNew},
        {"Option", RunOption},
        {"RTC", RunRtc},
        {"Run", RunRun, true},
        {"Time$", RunSetTime},
        {"XModem", RunXmodem},
    };
    return rows;
}

}  // namespace simulator
