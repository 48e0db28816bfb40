// What is known of each kind of board, as one row of facts. The simulated board has one
// engine for all of them and looks here wherever they differ. The rows are built from
// groups, because firmware of one age shares its habits across boards.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace simulator {

// Layout of a line of FILES: kNameFirst "name size", kSized "size  name", kDated
// "HH:MM DD-MM-YYYY size  name".
enum class BoardListing { kNameFirst, kSized, kDated };

// The electrical side of the console.
struct LineFacts {
    bool dropsOldest;      // no flow control: a full ring throws its oldest byte away
    size_t ring;           // bytes that wait while the board is busy
    bool sevenBits;        // input is masked to 7 bits
    int restartMs;         // how long the port is away after a restart; 0: it stays
    size_t telnetSegment;  // the console speaks telnet, so many bytes at once; 0: it doesn't
};

struct PromptFacts {
    const char* quietTail;  // follows "> " after every prompt
    const char* loudLead;   // goes before the prompt after RUN, an error, Ctrl-C, ...
    const char* errorLead;  // before the message
    int errorDelayMs;       // wait before an error is printed
    bool fullEditor;        // knows keys and prints the line again; else "\b \b" alone
    bool marksWrap;         // adds " \b" to the echo of a full row
    bool inputSkipsLf;      // the INPUT and PIN reader skips an LF behind a CR
    int pinDelayMs;         // silence after each answer to the PIN question; -1: no PIN
    bool softSignOn;        // a restart by software prints the sign-on
    const char* startUp;    // sequences before the first prompt
};

struct ReceiveFacts {
    const char* endKeys;  // Ctrl-C, Ctrl-Z, or key codes of F1 and F2
    bool holdsEcho;       // echo is flushed at CR, at 64 bytes or after 100 ms
    bool saysSaved;       // "Saved N bytes"
};

struct ListingFacts {
    BoardListing layout;
    int firstPage;   // lines before the first "PRESS ANY KEY ..."
    int nextPage;    // lines before each further one
    bool bytesFree;  // the summary tells the free bytes of drive A:
    int listPage;    // lines of a page of LIST
};

struct XmodemFacts {
    bool modern;     // SEND ends with no silence, and takes a lost EOT for success
    int startTries;  // SEND: tries and their length before the start
    int startMs;
    int resendMs;  // SEND: wait for the answer to a block
    int eotMs;     // SEND: wait for the answer to EOT
};

struct FlashFacts {
    int newMs;   // NEW
    int saveMs;  // end of AUTOSAVE to "Saved"
    int slotMs;  // work on a slot; 0: no slots, and drive A: is a card with FAT
    size_t programBytes;
};

struct BoardFacts {
    const char* name;     // the word of --board
    const char* title;    // one line for people
    const char* signOn;   // first line of the sign-on without its line end
    const char* options;  // lines of OPTION LIST
    const char* device;   // MM.DEVICE$
    int width;            // columns of the console
    int statementsPerMs;  // speed of a running program
    bool basic;           // else a plain command line, which only answers with its prompt
    // The ways of the CMM2: LS and files in place of FILES and program memory, a line end
    // between the lead and the loud prompt, which LIST and LS bring too, errors in one line.
    bool cmm2;
    const LineFacts& line;
    const PromptFacts& prompt;
    const ReceiveFacts& receive;
    const ListingFacts& listing;
    const XmodemFacts& xmodem;
    const FlashFacts& flash;
};

// The row with that name, compared without regard to case; nullptr if there is none.
const BoardFacts* FindBoardFacts(std::string_view name);

const std::vector<BoardFacts>& AllBoardFacts();

}  // namespace simulator
