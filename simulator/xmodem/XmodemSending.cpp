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

// One procedure for each message, because a flush calls back without arguments.
void FailSend(Board& board, const char* message) {
    board.xmodem = XmodemBoard();
    FailWith(board, message);
}

void SayCancelled(Board& board) {
    FailSend(board, "Cancelled by remote");
}
void SayNoResponse(Board& board) {
    FailSend(board, "Remote did not respond");
}
void SayTooMany(Board& board) {
    FailSend(board, "Too many errors");
}
void SayErrorClosing(Board& board) {
    FailSend(board, "Error closing");
}

// Old firmware acknowledges the CAN and flushes, 6.03 just ends.
void Cancel(Board& board) {
    if (board.facts.xmodem.modern) {
        SayCancelled(board);
        return;
    }
    PutByte(board, kXmodemAck);
    WaitForQuiet(board, SayCancelled);
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
        WaitForQuiet(board, SayNoResponse);
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
        if (board.facts.xmodem.modern) {
            SayTooMany(board);
        } else {
            WaitForQuiet(board, SayTooMany);
        }
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
    if (c == kXmodemCan) {
        Cancel(board);
    } else {
        StartTimedOut(board);
    }
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

// Old firmware waits for silence before it prints its prompt.
void CloseSend(Board& board) {
    if (board.facts.xmodem.modern) {
        EndXmodem(board);
    } else {
        WaitForQuiet(board, EndXmodem);
    }
}

// With no answer at all firmware 6.03 takes it for a success.
void SendEot(Board& board) {
    if (board.xmodem.tries == kEotTries) {
        if (board.facts.xmodem.modern) {
            EndXmodem(board);
        } else {
            WaitForQuiet(board, SayErrorClosing);
        }
        return;
    }
    ++board.xmodem.tries;
    PutByte(board, kXmodemEot);
    WakeIn(board, board.facts.xmodem.eotMs);
}

void TakeEotAnswer(Board& board, unsigned char c) {
    if (c == kXmodemAck) {
        CloseSend(board);
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
