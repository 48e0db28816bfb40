#include "simulator/PinDialogue.h"

#include "simulator/Board.h"
#include "simulator/LineReader.h"

namespace simulator {

namespace {

// Set for good: nothing but a restart leads out.
constexpr int kLockedForGood = 99999999;
constexpr char kQuestion[] = "Enter PIN or 0 to restart: ";
constexpr char kLocked[] = "Console locked, press enter to restart: ";

// After the silence. A wrong PIN is simply asked for again, with no word said.
void JudgePin(Board& board) {
    int64_t number = 0;
    if (!ReadInteger(board.prompt.typed, &number) || number == 0) {
        RestartBoard(board);
        return;
    }
    if (number == board.prompt.pin) board.prompt.unlocked = true;
    ReturnToPrompt(board);
}

// The silence follows the right answer too, so that it tells nothing.
void PinTyped(Board& board, const std::string& line) {
    if (board.prompt.pin == kLockedForGood) {
        RestartBoard(board);
        return;
    }
    if (line.empty()) {
        AskForPin(board);
        return;
    }
    board.prompt.typed = line;
    BusyThen(board, board.facts.prompt.pinDelayMs, JudgePin);
}

}  // namespace

// No line end stands behind the question.
void AskForPin(Board& board) {
    FreshLine(board);
    Put(board, board.prompt.pin == kLockedForGood ? kLocked : kQuestion);
    ReadLine(board, PinTyped);
}

}  // namespace simulator
