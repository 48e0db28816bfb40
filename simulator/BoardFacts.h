// What is known of each kind of board, as one row of facts. The simulated board has one
// engine for all of them and looks here wherever they differ. The rows are built from
// groups, because firmware of one age shares its habits across boards.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace simulator {

// How the command line is edited: kPlain rubs out with "\b \b" and knows no other key,
// kFull prints the line again and has cursor keys, history and function keys.
enum class BoardEditor { kPlain, kFull };

// What ends the receiving of a program text.
enum class BoardReceiveEnd { kCtrlC, kCtrlZ, kCtrlZOrFunctionKey, kFunctionKey };

// kSourceLine: "[12] source" and the message; kInLine: "Error in line 12: message".
enum class BoardErrorStyle { kSourceLine, kInLine };

// Layout of a line of FILES: kNameFirst "name size", kSized "size  name", kDated
// "HH:MM DD-MM-YYYY size  name".
enum class BoardListing { kNameFirst, kSized, kDated };

enum class BoardLanguage { kBasic, kShell };

// The electrical side of the console.
struct LineFacts {
    int baud;        // bits/s of a UART, 0: USB, as fast as the host takes it
    size_t ring;     // bytes that wait while the board is busy; a UART drops the oldest
    bool sevenBits;  // input is masked to 7 bits
    int restartMs;   // how long the port is away after a restart; 0: it stays
    bool telnet;     // the console speaks telnet over TCP
};

struct PromptFacts {
    const char* quietTail;   // follows "> " after every prompt
    const char* loudLead;    // goes before the prompt after RUN, an error, Ctrl-C, ...
    bool loudNewLine;        // a line end always stands between loudLead and the prompt
    bool listingIsLoud;      // LIST and FILES end with the loud prompt too
    const char* errorLead;   // before the message at the prompt and in a program
    const char* directLead;  // before the message at the prompt
    BoardErrorStyle errorStyle;
    int errorDelayMs;  // wait before an error is printed
    BoardEditor editor;
    bool inputSkipsLf;    // the INPUT and PIN reader skips an LF behind a CR
    int pinDelayMs;       // silence after each answer to the PIN question; -1: no PIN
    bool softSignOn;      // a restart by software prints the sign-on
    const char* startUp;  // sequences before the first prompt
};

struct ReceiveFacts {
    const char* word;  // the command
    BoardReceiveEnd end;
    bool needsName;   // the text goes to a file of that name
    bool holdsEcho;   // echo is flushed at CR, at 64 bytes or after 100 ms
    bool hasQuiet;    // AUTOSAVE N
    bool saysSaved;   // "Saved N bytes"
    bool allOptions;  // C and APPEND
};

struct ListingFacts {
    const char* word;  // FILES or LS
    BoardListing layout;
    int firstPage;      // lines before the first "PRESS ANY KEY ..."
    int nextPage;       // lines before each further one
    bool bytesFree;     // the summary tells the free bytes of drive A:
    bool newListPager;  // LIST pages back and forth and waits after its last page
    int listPage;       // lines of a page of LIST
};

struct XmodemFacts {
    bool crc;        // SEND starts with CRC on "C"
    int startTries;  // SEND: tries and their length before the start
    int startMs;
    int resendMs;          // SEND: wait for the answer to a block
    int eotMs;             // SEND: wait for the answer to EOT
    bool modernEnding;     // one CAN ends it unanswered, a lost EOT is success, no flush
    const char* lastLine;  // what the last line of a program ends with
};

struct FlashFacts {
    int newMs;   // NEW
    int saveMs;  // end of AUTOSAVE to "Saved"
    int slotMs;  // FLASH SAVE, OVERWRITE, ERASE, LOAD
    int slots;   // 0: the board has no FLASH commands
    size_t programBytes;
};

struct BoardFacts {
    const char* name;    // the word of --board
    const char* title;   // one line for people
    const char* signOn;  // first line of the sign-on without its line end
    const char* device;  // MM.DEVICE$
    double version;      // MM.VER
    int width;           // columns and rows of the console
    int rows;
    int statementsPerMs;  // speed of a running program
    BoardLanguage language;
    bool lcdConsole;  // OPTION DISPLAY is refused
    bool fat;         // the drive's messages are those of FAT
    bool upperNames;  // CHDIR and the command line are upper-cased
    const LineFacts& line;
    const PromptFacts& prompt;
    const ReceiveFacts& receive;
    const ListingFacts& listing;
    const XmodemFacts& xmodem;
    const FlashFacts& flash;
};

// The row with that name, compared without regard to case; nullptr if there is none.
const BoardFacts* FindBoardFacts(std::string_view name);

// All rows in the order of the table.
size_t BoardFactsCount();
const BoardFacts& BoardFactsAt(size_t index);

}  // namespace simulator
