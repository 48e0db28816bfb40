// The board sends. Firmware 6.03 and all before it have different habits; the facts of
// the row tell them apart.
#include "simulator/Board.h"

namespace simulator {
namespace {

constexpr char kCrcLetter = 'C';
constexpr int kEotTries = 10;
constexpr int64_t kSecondCanMs = 1000;

void TakeStart(Board& board, unsigned char c);
void StartTimedOut(Board& board);
void TakeSecondCan(Board& board, unsigned char c);
void TakeAnswer(Board& board, unsigned char c);
void SendAgain(Board& board);
void TakeEotAnswer(Board& board, unsigned char c);
void SendEot(Board& board);

const BoardActivity kStarting = {TakeStart, StartTimedOut, nullptr, false, true};
const BoardActivity kSecondCan = {TakeSecondCan, StartTimedOut, nullptr, false, true};
const BoardActivity kSending = {TakeAnswer, SendAgain, nullptr, false, true};
const BoardActivity kClosing = {TakeEotAnswer, SendEot, nullptr, false, true};

// Old firmware flushes the line before it says what went wrong, 6.03 just ends.
void FailSend(Board& board, const char* message) {
    if (board.facts.xmodem.modern) return FailXmodem(board, message);
    FailXmodemQuietly(board, message);
}

// Old firmware acknowledges the CAN.
void Cancel(Board& board) {
    if (!board.facts.xmodem.modern) PutByte(board, kXmodemAck);
    FailSend(board, "Cancelled by remote");
}

void WaitForStart(Board& board) {
    StartActivity(board, kStarting);
    WakeIn(board, board.facts.xmodem.startMs);
}

// A second without a start, or a stray byte: both cost a try.
void StartTimedOut(Board& board) {
    if (++board.xmodem.tries < board.facts.xmodem.startTries) {
        WaitForStart(board);
    } else if (board.facts.xmodem.modern) {
        FailSend(board, "Receiver did not respond");
    } else {
        PutCancel(board);
        FailSend(board, "Remote did not respond");
    }
}

// SOH, number, complement, data, then the sum or the CRC with its high byte first.
void MakeBlock(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    std::string data = xmodem.data.substr(xmodem.at, kXmodemData);
    data.resize(kXmodemData, '\0');
    xmodem.block = {static_cast<char>(kXmodemSoh), static_cast<char>(xmodem.number),
                    static_cast<char>(~xmodem.number)};
    xmodem.block += data;
    if (xmodem.crc) {
        const uint16_t crc = BoardCrc16(data);
        xmodem.block += static_cast<char>(crc >> 8);
        xmodem.block += static_cast<char>(crc & 0xff);
    } else {
        xmodem.block += static_cast<char>(BoardSum8(data));
    }
}

// The next block, or EOT when there is none. An empty file is EOT alone.
void SendBlock(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    xmodem.tries = 0;
    if (xmodem.at >= xmodem.data.size()) {
        StartActivity(board, kClosing);
        SendEot(board);
        return;
    }
    MakeBlock(board);
    StartActivity(board, kSending);
    SendAgain(board);
}

// Nothing that was typed ahead is dropped first: two NAKs at the start bring block 1 twice.
void SendAgain(Board& board) {
    if (board.xmodem.tries == kXmodemSends) {
        PutCancel(board);
        FailSend(board, "Too many errors");
        return;
    }
    ++board.xmodem.tries;
    PutRaw(board, board.xmodem.block);
    WakeIn(board, board.facts.xmodem.resendMs);
}

// "C" asks for a CRC; firmware before 6.03 doesn't know it and counts it as noise.
void TakeStart(Board& board, unsigned char c) {
    const XmodemFacts& facts = board.facts.xmodem;
    if (c == kXmodemNak || (c == kCrcLetter && facts.modern)) {
        board.xmodem.crc = c == kCrcLetter;
        SendBlock(board);
    } else if (c != kXmodemCan) {
        StartTimedOut(board);
    } else if (facts.modern) {
        Cancel(board);
    } else {
        StartActivity(board, kSecondCan);
        WakeIn(board, kSecondCanMs);
    }
}

// Old firmware wants two CANs before the start.
void TakeSecondCan(Board& board, unsigned char c) {
    if (c == kXmodemCan) return Cancel(board);
    StartTimedOut(board);
}

// Any byte but ACK and CAN brings the block again at once.
void TakeAnswer(Board& board, unsigned char c) {
    XmodemBoard& xmodem = board.xmodem;
    if (c == kXmodemAck) {
        xmodem.at += kXmodemData;
        ++xmodem.number;
        SendBlock(board);
    } else if (c == kXmodemCan) {
        Cancel(board);
    } else {
        SendAgain(board);
    }
}

// With no answer at all firmware 6.03 takes it for a success.
void SendEot(Board& board) {
    if (board.xmodem.tries == kEotTries) {
        if (board.facts.xmodem.modern) {
            EndXmodem(board);
        } else {
            FailSend(board, "Error closing");
        }
        return;
    }
    ++board.xmodem.tries;
    PutByte(board, kXmodemEot);
    WakeIn(board, board.facts.xmodem.eotMs);
}

void TakeEotAnswer(Board& board, unsigned char c) {
    if (c == kXmodemAck && board.facts.xmodem.modern) {
        EndXmodem(board);
    } else if (c == kXmodemAck) {
        WaitForQuiet(board, EndXmodem);  // its prompt comes after a silence
    } else if (c == kXmodemCan && board.facts.xmodem.modern) {
        Cancel(board);
    } else {
        SendEot(board);
    }
}

}  // namespace

void StartXmodemSend(Board& board) {
    WaitForStart(board);
}

}  // namespace simulator
