// The board sends. Firmware 6.03 and all before it have different habits; the facts of
// the row tell them apart.
#include "simulator/Board.h"

namespace simulator {
namespace {

constexpr int kEotTries = 10;

void TakeStart(Board& board, unsigned char c);
void StartTimedOut(Board& board);
void TakeAnswer(Board& board, unsigned char c);
void SendAgain(Board& board);
void TakeEotAnswer(Board& board, unsigned char c);
void SendEot(Board& board);

const BoardActivity kStarting = {TakeStart, StartTimedOut, nullptr, false, true};
const BoardActivity kSending = {TakeAnswer, SendAgain, nullptr, false, true};
const BoardActivity kClosing = {TakeEotAnswer, SendEot, nullptr, false, true};

// Old firmware waits for a quiet line before it says what went wrong, 6.03 just ends.
void FailSend(Board& board, const char* message) {
    if (board.facts.xmodem.modern) return FailXmodem(board, message);
    board.xmodem.failure = message;
    WaitForQuiet(board, [](Board& quiet) { FailXmodem(quiet, quiet.xmodem.failure); });
}

// Old firmware acknowledges the CAN.
void Cancel(Board& board) {
    if (!board.facts.xmodem.modern) PutByte(board, kXmodemAck);
    FailSend(board, "Cancelled by remote");
}

// A second without a start, or a stray byte: both cost a try.
void StartTimedOut(Board& board) {
    if (++board.xmodem.tries < board.facts.xmodem.startTries) return WaitForXmodemStart(board);
    if (!board.facts.xmodem.modern) PutCancel(board);
    FailSend(board, "Remote did not respond");
}

// SOH, number, complement, data, sum.
void MakeBlock(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    std::string data = xmodem.data.substr(xmodem.at, kXmodemData);
    data.resize(kXmodemData, '\0');
    xmodem.block = {static_cast<char>(kXmodemSoh), static_cast<char>(xmodem.number),
                    static_cast<char>(~xmodem.number)};
    xmodem.block += data + static_cast<char>(BoardSum8(data));
}

// The next block, or EOT when there is none. An empty file is EOT alone.
void SendBlock(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    xmodem.tries = 0;
    if (xmodem.at >= xmodem.data.size()) {
        StartActivity(board, kClosing);
        return SendEot(board);
    }
    MakeBlock(board);
    StartActivity(board, kSending);
    SendAgain(board);
}

// Nothing that was typed ahead is dropped first: two NAKs at the start bring block 1 twice.
void SendAgain(Board& board) {
    if (board.xmodem.tries == kXmodemSends) {
        PutCancel(board);
        return FailSend(board, "Too many errors");
    }
    ++board.xmodem.tries;
    PutRaw(board, board.xmodem.block);
    WakeIn(board, board.facts.xmodem.resendMs);
}

// Whatever asks for a CRC counts as noise.
void TakeStart(Board& board, unsigned char c) {
    if (c == kXmodemNak) return SendBlock(board);
    if (c == kXmodemCan) return Cancel(board);
    StartTimedOut(board);
}

// Any byte but ACK and CAN brings the block again at once.
void TakeAnswer(Board& board, unsigned char c) {
    if (c == kXmodemCan) return Cancel(board);
    if (c != kXmodemAck) return SendAgain(board);
    board.xmodem.at += kXmodemData;
    ++board.xmodem.number;
    SendBlock(board);
}

// With no answer at all firmware 6.03 takes it for a success.
void SendEot(Board& board) {
    if (board.xmodem.tries == kEotTries)
        return board.facts.xmodem.modern ? EndXmodem(board) : FailSend(board, "Error closing");
    ++board.xmodem.tries;
    PutByte(board, kXmodemEot);
    WakeIn(board, board.facts.xmodem.eotMs);
}

// The prompt of old firmware comes after a silence.
void TakeEotAnswer(Board& board, unsigned char c) {
    if (c != kXmodemAck) return SendEot(board);
    board.facts.xmodem.modern ? EndXmodem(board) : WaitForQuiet(board, EndXmodem);
}

}  // namespace

void WaitForXmodemStart(Board& board) {
    StartActivity(board, kStarting);
    WakeIn(board, board.facts.xmodem.startMs);
}

}  // namespace simulator
