// The way back to the prompt, the words of errors, the sign-on, and the restart.
#pragma once

#include <string>
#include <string_view>

namespace simulator {
struct Board;

struct PromptState {
    bool loud = false;      // the next prompt comes with the sequences of a long jump
    bool unlocked = false;  // the PIN was given since the last reset
    int pin = 0;            // 0: none
    std::string typed;      // answer to the PIN question
    std::string error;      // that will be printed
};

// Ends whatever ran and prints the prompt, or asks for the PIN. Loudly: also for Ctrl-C.
void ReturnToPrompt(Board& board);
void ReturnToPromptLoudly(Board& board);

// Prints `message` in the board's own words, then the prompt. The place is that of the
// statement that failed.
void FailWith(Board& board, std::string_view message);

void PrintSignOn(Board& board);

// The chip starts anew; over USB the port goes away for a while.
void RestartBoard(Board& board);

}  // namespace simulator
