// The whole state of one simulated board. Each part's record and procedures stand in the
// part's own header; this one only puts them together.
#pragma once

#include <deque>

#include "simulator/BoardActivity.h"
#include "simulator/BoardClock.h"
#include "simulator/BoardFacts.h"
#include "simulator/BoardOutput.h"
#include "simulator/BoardText.h"
#include "simulator/FlashSlots.h"
#include "simulator/LineEditor.h"
#include "simulator/Pager.h"
#include "simulator/ProgramMemory.h"
#include "simulator/ProgramReceive.h"
#include "simulator/Prompt.h"
#include "simulator/SimulatedBoard.h"
#include "simulator/TelnetCoding.h"
#include "simulator/basic/BasicExpression.h"
#include "simulator/basic/BasicMachine.h"
#include "simulator/files/FileStore.h"
#include "simulator/xmodem/XmodemBoard.h"

namespace simulator {

struct Board {
    Board(const BoardFacts& boardFacts, const BoardSetup& boardSetup);

    const BoardFacts& facts;
    const BoardSetup setup;

    int64_t now = 0;  // ms
    bool powered = false;
    bool listening = true;
    int64_t awayUntil = 0;         // the port is gone until then, ms
    int64_t nextStorm = kNeverMs;  // ms
    uint64_t random;               // state of Draw, never 0

    const BoardActivity* activity;
    int64_t wakeAt = kNeverMs;  // of the activity, ms
    void (*afterBusy)(Board& board) = nullptr;
    bool stopAsked = false;  // Ctrl-C came while the board was busy

    BoardOutput out;
    std::deque<unsigned char> ring;  // what waits; at most facts.line.ring bytes
    TelnetCoding telnet;
    PromptState prompt;
    LineEditor editor;
    ProgramReceive receive;
    ProgramMemory program;
    FlashSlots flash;
    FileStore files;
    Pager pager;
    XmodemBoard xmodem;
    BasicMachine basic;
    BoardClock clock;
};

// A number from 0 to below - 1, from the seed alone.
int Draw(Board& board, int below);

}  // namespace simulator
