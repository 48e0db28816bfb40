// The board receives: it asks for blocks, and never for a CRC.
#include "simulator/Board.h"

namespace simulator {
namespace {

constexpr int kStartTries = 32;
constexpr int64_t kTryMs = 2000;
constexpr int64_t kByteMs = 1000;
constexpr int64_t kWriteMs = 2;
constexpr size_t kBlockRest = kXmodemData + 3;  // number, complement, data, sum

void TakeStart(Board& board, unsigned char c);
void NextTry(Board& board);
void TakeBlockByte(Board& board, unsigned char c);
void RejectBlock(Board& board);
void Acknowledge(Board& board);

const BoardActivity kWaiting = {TakeStart, NextTry, nullptr, false, true};
const BoardActivity kInBlock = {TakeBlockByte, RejectBlock, nullptr, false, true};
const BoardActivity kWriting = {nullptr, Acknowledge, nullptr, false, true};

// A partial file stays after a failure.
const char* KeepData(Board& board) {
    return WriteFile(board.files, board.xmodem.path, board.xmodem.data, BoardSeconds(board));
}

void FailReceive(Board& board, const char* message) {
    KeepData(board);
    FailXmodem(board, message);
}

// After the first block it waits in silence: no NAK asks for the next one.
void NextTry(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    if (xmodem.tries == kStartTries) {
        PutCancel(board);
        return FailReceive(board, "Remote did not respond");
    }
    ++xmodem.tries;
    if (xmodem.prompts) PutByte(board, kXmodemNak);
    WakeIn(board, kTryMs);
}

// The ACK goes out before the file is written whole: what fails then fails in words.
void Finish(Board& board) {
    PutByte(board, kXmodemAck);
    if (const char* error = KeepData(board)) return FailXmodem(board, error);
    EndXmodem(board);
}

void Cancelled(Board& board) {
    PutByte(board, kXmodemAck);
    FailReceive(board, "Cancelled by remote");
}

// STX and 1K blocks are unknown: noise like any other byte.
void TakeStart(Board& board, unsigned char c) {
    if (c == kXmodemEot) return WaitForQuiet(board, Finish);
    if (c == kXmodemCan) return WaitForQuiet(board, Cancelled);
    if (c != kXmodemSoh) return NextTry(board);
    board.xmodem.prompts = false;
    board.xmodem.block.clear();
    StartActivity(board, kInBlock);
    WakeIn(board, kByteMs);
}

void Acknowledge(Board& board) {
    PutByte(board, kXmodemAck);
    WaitForXmodemBlock(board);
}

void AskAgain(Board& board) {
    PutByte(board, kXmodemNak);
    WaitForXmodemBlock(board);
}

// A bad block is answered when the line has been quiet for 1.5 s; a host that sends the next
// one meanwhile makes the wait longer.
void RejectBlock(Board& board) {
    WaitForQuiet(board, AskAgain);
}

void GiveUp(Board& board) {
    PutCancel(board);
    FailReceive(board, "Too many errors");
}

// The block is written first and acknowledged then.
void StoreBlock(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    if (xmodem.data.size() + kXmodemData > FreeBytes(board.files)) {
        PutCancel(board);
        return FailReceive(board, "No space left on device");
    }
    xmodem.data.append(xmodem.block, 2, kXmodemData);
    ++xmodem.number;
    xmodem.repeatsLeft = kXmodemSends;
    StartActivity(board, kWriting);
    WakeIn(board, kWriteMs);
}

// A fault of all firmware stands here on purpose: "the block before" is reckoned in whole
// integers, so behind block 255 (number 0) it would be -1, and a repeated block 255 is
// refused for ever.
void JudgeBlock(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    const auto at = [&](size_t i) { return static_cast<unsigned char>(xmodem.block[i]); };
    const bool numbered = at(0) == static_cast<unsigned char>(~at(1));
    const bool expected = at(0) == xmodem.number;
    const bool repeated = static_cast<int>(at(0)) == static_cast<int>(xmodem.number) - 1;
    const std::string_view data = std::string_view(xmodem.block).substr(2, kXmodemData);
    const bool sound = at(kXmodemData + 2) == BoardSum8(data);
    if (!numbered || !sound || !(expected || repeated)) return RejectBlock(board);
    if (expected) return StoreBlock(board);
    if (xmodem.repeatsLeft-- == 0) return WaitForQuiet(board, GiveUp);
    Acknowledge(board);
}

// Each byte has a second to come.
void TakeBlockByte(Board& board, unsigned char c) {
    board.xmodem.block += static_cast<char>(c);
    if (board.xmodem.block.size() == kBlockRest) return JudgeBlock(board);
    WakeIn(board, kByteMs);
}

}  // namespace

// The tries start anew for each block.
void WaitForXmodemBlock(Board& board) {
    board.xmodem.tries = 0;
    StartActivity(board, kWaiting);
    NextTry(board);
}

}  // namespace simulator
