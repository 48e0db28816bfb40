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
    const BoardFacts* facts = nullptr;
    BoardSetup setup;
    std::string address = "127.0.0.1";  // to listen on
    int port = 3001;
    bool pty = false;
    std::string link;        // path of a symbolic link to the pty; empty: none
    std::string folder;      // whose files go onto drive A:; empty: the samples
    bool empty = false;      // an empty drive
    bool once = false;       // end with the first connection
    bool alreadyOn = false;  // power up at the start, not at the first connection
};

SimOptions ReadSimOptions(int argc, char** argv);

void PrintSimHelp();
void PrintBoardList();

}  // namespace simulator
