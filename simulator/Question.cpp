#include "simulator/Question.h"

#include "simulator/Board.h"

namespace simulator {

namespace {

// Only Y is yes. A byte that is no character is an answer too, and not echoed.
void KeyAnswers(Board& board, unsigned char c) {
    const char key = UpperChar(static_cast<char>(c));
    if (c >= ' ' && c < 0x7f) Echo(board, std::string(1, key));
    NewLine(board);
    board.answered(board, key == 'Y');
}

const BoardActivity kAsking = {KeyAnswers, nullptr, BreakToPrompt};

}  // namespace

void AskYesNo(Board& board, const std::string& question, void (*done)(Board& board, bool yes)) {
    Put(board, question);
    board.answered = done;
    StartActivity(board, kAsking);
}

}  // namespace simulator
