// AUTOSAVE and AUTO: the board takes a program text as it is typed, until an end code.
#pragma once

#include <cstdint>
#include <string>

#include "simulator/KeyDecoder.h"

namespace simulator {
struct Board;

struct ProgramReceive {
    std::string text;
    std::string fileName;  // where the text goes as well; empty: program memory alone
    KeyDecoder keys;
    bool atStart = true;  // nothing has come yet: one LF is skipped
    bool afterCr = false;
    bool runs = false;       // RUN follows the save
    int64_t lastByteAt = 0;  // ms
};

// The command itself; the cursor stands behind its word.
void StartProgramReceive(Board& board);

}  // namespace simulator
