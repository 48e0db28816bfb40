// The command line of boardsim.
#pragma once

#include <string>

#include "simulator/SimulatedBoard.h"

namespace simulator {

struct SimOptions {
    std::string error;  // what is wrong with the command line, a whole sentence
    bool help = false;
    bool version = false;
    bool listBoards = false;
    std::string boardName = "picomite";
    const BoardFacts* facts = nullptr;
    BoardSetup setup;
    int port = 3001;
    bool pty = false;
    std::string folder;  // whose files go onto drive A:; empty: the samples
    bool empty = false;  // an empty drive
};

SimOptions ReadSimOptions(int argc, char** argv);

void PrintSimHelp();
void PrintBoardList();

}  // namespace simulator
