#include "simulator/xmodem/XmodemBoard.h"

#include "simulator/Board.h"
#include "simulator/files/FileCommands.h"

namespace simulator {
namespace {

constexpr int64_t kQuietMs = 1500;

// Each byte starts the silence anew, so a host that goes on sending is never answered.
void TakeNoise(Board& board, unsigned char) {
    WakeIn(board, kQuietMs);
}

void LineIsQuiet(Board& board) {
    board.xmodem.afterQuiet(board);
}

const BoardActivity kQuieting = {TakeNoise, LineIsQuiet, nullptr, false, true};

// A missing file brings an error in place of protocol bytes.
void BeginSend(Board& board) {
    if (FetchFile(board, board.xmodem.path, &board.xmodem.data)) WaitForXmodemStart(board);
}

// The file is made at once: a folder that isn't there fails before the first NAK.
void BeginReceive(Board& board) {
    const char* error = WriteFile(board.files, board.xmodem.path, "", BoardSeconds(board));
    if (error) return Refuse(board, error);
    WaitForXmodemBlock(board);
}

}  // namespace

void RunXmodem(Board& board) {
    const bool sends = TakeKeyword(board, "SEND") || TakeKeyword(board, "S");
    if (!sends && !TakeKeyword(board, "RECEIVE") && !TakeKeyword(board, "R"))
        return Refuse(board, "Syntax");
    if (AtStatementEnd(board)) return Refuse(board, "XMODEM wants a name in the simulated board");
    board.xmodem = XmodemBoard();
    if (!TakePath(board, &board.xmodem.path)) return;
    if (sends) return BeginSend(board);
    BeginReceive(board);
}

void PutByte(Board& board, unsigned char c) {
    const char byte = static_cast<char>(c);
    PutRaw(board, std::string_view(&byte, 1));
}

void PutCancel(Board& board) {
    PutRaw(board, "\x18\x18\x18");
}

void WaitForQuiet(Board& board, void (*then)(Board& board)) {
    board.xmodem.afterQuiet = then;
    StartActivity(board, kQuieting);
    WakeIn(board, kQuietMs);
}

// The prompt follows the last protocol byte at once, maybe in the same read.
void EndXmodem(Board& board) {
    board.xmodem = XmodemBoard();
    board.prompt.loud = true;
    ResumeBasic(board);
}

// A partial file stays.
void FailXmodem(Board& board, const char* message) {
    board.xmodem = XmodemBoard();
    FailWith(board, message);
}

unsigned char BoardSum8(std::string_view data) {
    unsigned sum = 0;
    for (const char c : data) sum += static_cast<unsigned char>(c);
    return static_cast<unsigned char>(sum & 0xff);
}

}  // namespace simulator
