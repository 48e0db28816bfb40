#include "simulator/Prompt.h"

#include <utility>

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"

namespace simulator {

// Two prompts: the quiet one after an ordinary command, and the loud one, with sequences in
// front, after everything that ends by a long jump in the firmware.

namespace {

constexpr size_t kMaximumMessage = 63;

// What a long jump back to the prompt sends first, locked or not.
void PrintLoudLead(Board& board) {
    const PromptFacts& facts = board.facts.prompt;
    if (!std::exchange(board.prompt.loud, false)) return;
    PutRaw(board, facts.loudLead);
    if (board.facts.cmm2) NewLine(board);
}

void PrintPrompt(Board& board) {
    FreshLine(board);
    Put(board, "> ");
    PutRaw(board, board.facts.prompt.quietTail);
    StartLineEditor(board);
}

// The source line is shown as LIST would show it.
void PrintErrorPlace(Board& board) {
    const BasicPlace place = board.basic.failedAt;
    const int number = place.line + 1;
    if (!place.direct && board.facts.cmm2) {
        Put(board, BoardFormat("Error in line %d: ", number));
    } else if (!place.direct) {
        Put(board, BoardFormat("[%d] ", number) + RecasedLine(ProgramLine(board, place.line)));
        NewLine(board);
    }
    Put(board, board.facts.prompt.errorLead);
}

void PrintError(Board& board) {
    FreshLine(board);
    PrintErrorPlace(board);
    Put(board, std::string_view(board.prompt.error).substr(0, kMaximumMessage));
    NewLine(board);
    ReturnToPromptLoudly(board);
}

void AskForPin(Board& board);

// After the silence. A wrong PIN is simply asked for again, with no word said.
void JudgePin(Board& board) {
    int64_t number = 0;
    if (!ReadInteger(board.prompt.typed, &number) || number == 0) return RestartBoard(board);
    if (number == board.prompt.pin) board.prompt.unlocked = true;
    ReturnToPrompt(board);
}

// The silence follows the right answer too, so that it tells nothing.
void PinTyped(Board& board, const std::string& line) {
    if (line.empty()) return AskForPin(board);
    board.prompt.typed = line;
    BusyThen(board, board.facts.prompt.pinDelayMs, JudgePin);
}

// No line end stands behind the question.
void AskForPin(Board& board) {
    FreshLine(board);
    Put(board, "Enter PIN or 0 to restart: ");
    ReadLine(board, PinTyped);
}

void PortIsBack(Board& board) {
    if (board.facts.prompt.softSignOn) PrintSignOn(board);
    ReturnToPrompt(board);
}

}  // namespace

// Every road back leads through here, so the PIN can't be gone round.
void ReturnToPrompt(Board& board) {
    StopProgram(board);
    PrintLoudLead(board);
    if (board.prompt.pin != 0 && !board.prompt.unlocked) return AskForPin(board);
    PrintPrompt(board);
}

// For Ctrl-C too: no "^C" is printed.
void ReturnToPromptLoudly(Board& board) {
    board.prompt.loud = true;
    ReturnToPrompt(board);
}

// The place is kept before the wait: what stops meanwhile would lose it.
void FailWith(Board& board, std::string_view message) {
    board.prompt.error = message;
    board.basic.failedAt = board.basic.statement;
    BusyThen(board, board.facts.prompt.errorDelayMs, PrintError);
}

void PrintSignOn(Board& board) {
    Put(board, board.facts.signOn);
    Put(board,
        "\r\nSimulated board of Kewlink Console\r\n"
        "A stand-in for trying things out, not the firmware\r\n\r\n");
    PutRaw(board, board.facts.prompt.startUp);
}

// Program, drives and options outlive a restart; variables and the PIN's answer don't.
void RestartBoard(Board& board) {
    StopProgram(board);
    ClearVariables(board);
    board.prompt.unlocked = false;
    board.prompt.loud = false;
    board.ring.clear();
    board.out.column = 1;
    const int away = board.facts.line.restartMs;
    board.awayUntil = board.now + away;
    BusyThen(board, away, PortIsBack, true);
}

}  // namespace simulator
