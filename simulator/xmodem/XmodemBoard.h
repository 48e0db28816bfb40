// XMODEM as the boards' firmware speaks it, with its habits and its faults: blocks of 128 bytes
// with a checksum.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace simulator {
struct Board;

constexpr size_t kXmodemData = 128;
constexpr unsigned char kXmodemSoh = 0x01;
constexpr unsigned char kXmodemEot = 0x04;
constexpr unsigned char kXmodemAck = 0x06;
constexpr unsigned char kXmodemNak = 0x15;
constexpr unsigned char kXmodemCan = 0x18;
constexpr int kXmodemSends = 25;  // of one block, and repeats that are borne

struct XmodemBoard {
    std::string path;
    std::string data;          // received so far, or to be sent
    std::string block;         // being received, behind its SOH; or being sent, whole
    unsigned char number = 1;  // of the block
    int tries = 0;
    int repeatsLeft = kXmodemSends;
    bool prompts = true;  // RECEIVE still sends NAK by itself
    size_t at = 0;        // SEND: bytes that were acknowledged
    void (*afterQuiet)(Board& board) = nullptr;
    const char* failure = "";  // the words that follow the silence
};

// XMODEM SEND and RECEIVE; the cursor stands behind the word.
void RunXmodem(Board& board);

// RECEIVE asks for the next block, from the first on; SEND waits to be asked for the first.
void WaitForXmodemBlock(Board& board);
void WaitForXmodemStart(Board& board);

void PutByte(Board& board, unsigned char c);
void PutCancel(Board& board);

// Swallows what comes until the line was quiet for 1.5 s, then calls `then`.
void WaitForQuiet(Board& board, void (*then)(Board& board));

// The transfer is over: the prompt, or an error first.
void EndXmodem(Board& board);
void FailXmodem(Board& board, const char* message);

unsigned char BoardSum8(std::string_view data);

}  // namespace simulator
