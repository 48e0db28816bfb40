// What the group [Choices] of the settings file chooses: ways out of habits that boards
// and people depend on, and that stay what the program does by itself. docs/CHOICES.md
// says for each what happens with 0 and with any other number. Filled at start; any
// thread.
#pragma once

struct Choices {
    int inFile = 0;               // the file had the group when it was loaded
    int keysActOnce = 0;          // a key of the key table does not send its text as well
    int brightWhite = 0;          // SGR 97 and 107 are white
    int localPorts = 0;           // the two servers bind 127.0.0.1
    int telnetLineEnds = 0;       // text from a TCP link loses its telnet coding
    int followCable = 0;          // a lost link is disconnected, a serial one taken up again
    int readAsItComes = 0;        // the poll runs as soon as bytes wait
    int altOpensMenus = 0;        // the menu titles have mnemonics
    int replaceWhenComplete = 0;  // a fetched file takes its place when it is whole
};

extern const Choices& choices;
Choices& ChoicesForTable();  // for the settings table alone
