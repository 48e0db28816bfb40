// The board receives: blocks of 128 bytes with a checksum, never a CRC.
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
    const XmodemBoard& xmodem = board.xmodem;
    if (xmodem.path.empty()) return nullptr;
    return WriteFile(board.files, xmodem.path, xmodem.data, BoardSeconds(board));
}

void FailReceive(Board& board, const char* message) {
    KeepData(board);
    FailXmodem(board, message);
}

// The tries start anew for each block.
void WaitForBlock(Board& board) {
    board.xmodem.tries = 0;
    StartActivity(board, kWaiting);
    NextTry(board);
}

// After the first block it waits in silence: no NAK asks for the next one.
void NextTry(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    if (xmodem.tries == kStartTries) {
        PutCancel(board);
        FailReceive(board, "Remote did not respond");
        return;
    }
    ++xmodem.tries;
    if (xmodem.prompts) PutByte(board, kXmodemNak);
    WakeIn(board, kTryMs);
}

void ProgramSaved(Board& board) {
    Put(board, BoardFormat("Saved %zu bytes\r\n", TokenisedSize(board)));
    EndXmodem(board);
}

// Into program memory the padding goes.
void StoreReceivedProgram(Board& board) {
    std::string text;
    for (const char c : board.xmodem.data) {
        if (c != '\0' && c != '\x1a') text += c;
    }
    const char* error = StoreProgram(board, text);
    if (error) return FailReceive(board, error);
    BusyThen(board, board.facts.flash.saveMs, ProgramSaved, true);
}

// The ACK goes out before the file is written whole: what fails then fails in words.
void Finish(Board& board) {
    PutByte(board, kXmodemAck);
    if (board.xmodem.path.empty()) return StoreReceivedProgram(board);
    const char* error = KeepData(board);
    if (error) return FailReceive(board, error);
    EndXmodem(board);
}

void Cancelled(Board& board) {
    PutByte(board, kXmodemAck);
    FailReceive(board, "Cancelled by remote");
}

// STX and 1K blocks are unknown: noise like any other byte.
void TakeStart(Board& board, unsigned char c) {
    switch (c) {
        case kXmodemSoh:
            board.xmodem.prompts = false;
            board.xmodem.block.clear();
            StartActivity(board, kInBlock);
            WakeIn(board, kByteMs);
            break;
        case kXmodemEot:
            WaitForQuiet(board, Finish);
            break;
        case kXmodemCan:
            WaitForQuiet(board, Cancelled);
            break;
        default:
            NextTry(board);
            break;
    }
}

void Acknowledge(Board& board) {
    PutByte(board, kXmodemAck);
    WaitForBlock(board);
}

void Refuse(Board& board) {
    PutByte(board, kXmodemNak);
    WaitForBlock(board);
}

// A bad block is answered when the line has been quiet for 1.5 s; a host that sends the next
// one meanwhile makes the wait longer.
void RejectBlock(Board& board) {
    WaitForQuiet(board, Refuse);
}

void GiveUp(Board& board) {
    PutCancel(board);
    FailReceive(board, "Too many errors");
}

// Flash file or program memory, each with its own limit.
bool HasRoom(const Board& board) {
    const XmodemBoard& xmodem = board.xmodem;
    const size_t limit =
        xmodem.path.empty() ? board.facts.flash.programBytes : FreeBytes(board.files);
    return xmodem.data.size() + kXmodemData <= limit;
}

// The block is written first and acknowledged then.
void StoreBlock(Board& board) {
    XmodemBoard& xmodem = board.xmodem;
    if (!HasRoom(board)) {
        PutCancel(board);
        FailReceive(board, xmodem.path.empty() ? "Not enough memory" : "No space left on device");
        return;
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

void StartXmodemReceive(Board& board) {
    board.xmodem.repeatsLeft = kXmodemSends;
    WaitForBlock(board);
}

}  // namespace simulator
