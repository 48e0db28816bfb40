#include "simulator/Prompt.h"

#include <utility>

#include "simulator/Board.h"
#include "simulator/PinDialogue.h"
#include "simulator/basic/BasicSubs.h"

namespace simulator {

// Two prompts: the quiet one after an ordinary command, and the loud one, with sequences in
// front, after everything that ends by a long jump in the firmware.

namespace {

constexpr size_t kMaximumMessage = 63;
constexpr char kPromptSub[] = "MM.PROMPT";

// What a long jump back to the prompt sends first, locked or not.
void PrintLoudLead(Board& board) {
    const PromptFacts& facts = board.facts.prompt;
    if (!std::exchange(board.prompt.loud, false)) return;
    PutRaw(board, facts.loudLead);
    if (facts.loudNewLine) NewLine(board);
}

// A SUB of the program may print it instead.
void PrintPrompt(Board& board) {
    if (IsSub(board, kPromptSub) && !board.prompt.subBroken) {
        board.prompt.subRuns = true;
        StartDirectLine(board, kPromptSub);
        return;
    }
    FreshLine(board);
    Put(board, "> ");
    PutRaw(board, board.facts.prompt.quietTail);
    StartLineEditor(board);
}

// The source line is shown as LIST would show it.
void PrintErrorPlace(Board& board) {
    const PromptFacts& facts = board.facts.prompt;
    const BasicPlace place = board.basic.failedAt;
    if (place.direct) {
        Put(board, facts.directLead);
        return;
    }
    const int number = place.line + 1;
    if (facts.errorStyle == BoardErrorStyle::kInLine) {
        Put(board, BoardFormat("%s%d: ", facts.errorLead, number));
        return;
    }
    Put(board, BoardFormat("[%d] ", number));
    Put(board, RecasedLine(ProgramLine(board, place.line)));
    NewLine(board);
    Put(board, facts.errorLead);
}

void PrintError(Board& board) {
    FreshLine(board);
    PrintErrorPlace(board);
    Put(board, std::string_view(board.prompt.error).substr(0, kMaximumMessage));
    NewLine(board);
    ReturnToPromptLoudly(board);
}

void PortIsBack(Board& board) {
    if (board.facts.prompt.softSignOn) PrintSignOn(board);
    ReturnToPrompt(board);
}

}  // namespace

// Every road back leads through here, so the PIN can't be gone round.
void ReturnToPrompt(Board& board) {
    StopProgram(board);
    // One that fails or is stopped would come again and again.
    if (std::exchange(board.prompt.subRuns, false)) board.prompt.subBroken = true;
    PrintLoudLead(board);
    if (board.prompt.pin != 0 && !board.prompt.unlocked) {
        AskForPin(board);
        return;
    }
    PrintPrompt(board);
}

void ReturnToPromptLoudly(Board& board) {
    board.prompt.loud = true;
    ReturnToPrompt(board);
}

void PromptSubIsOver(Board& board) {
    board.prompt.subRuns = false;
    StopProgram(board);
    StartLineEditor(board);
}

// The place is kept before the wait: what stops meanwhile would lose it.
void FailWith(Board& board, std::string_view message) {
    board.prompt.error = message;
    board.basic.failedAt = board.basic.statement;
    BusyThen(board, board.facts.prompt.errorDelayMs, PrintError);
}

// No "^C" is printed.
void BreakToPrompt(Board& board) {
    ReturnToPromptLoudly(board);
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
    board.in.ring.clear();
    board.out.column = 1;
    const int away = board.facts.line.restartMs;
    board.awayUntil = board.now + away;
    BusyThen(board, away, PortIsBack, true);
}

}  // namespace simulator
