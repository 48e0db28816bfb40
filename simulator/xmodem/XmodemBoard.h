// XMODEM as the boards' firmware speaks it, with its habits and its faults.
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
constexpr int kXmodemSends = 25;          // of one block, and repeats that are borne
constexpr int64_t kXmodemQuietMs = 1500;  // silence that ends a flush of the line

struct XmodemBoard {
    std::string path;          // empty: program memory
    std::string data;          // received so far, or to be sent
    std::string block;         // being received, behind its SOH; or being sent, whole
    unsigned char number = 1;  // of the block
    int tries = 0;
    int repeatsLeft = 0;
    bool prompts = true;  // RECEIVE still sends NAK by itself
    bool crc = false;     // SEND: the receiver asked for it
    size_t at = 0;        // SEND: bytes that were acknowledged
    int state = 0;        // of the direction's own states
    void (*afterQuiet)(Board& board) = nullptr;
    const char* failure = "";  // the words that follow the silence
};

// XMODEM SEND and RECEIVE; the cursor stands behind the word.
void RunXmodem(Board& board);

// The two directions; path and data are set.
void StartXmodemReceive(Board& board);
void StartXmodemSend(Board& board);

void PutByte(Board& board, unsigned char c);
void PutCancel(Board& board);

// Swallows what comes until the line was quiet for 1.5 s, then calls `then`.
void WaitForQuiet(Board& board, void (*then)(Board& board));

// The transfer is over: the prompt, or an error first, at once or after a silence.
void EndXmodem(Board& board);
void FailXmodem(Board& board, const char* message);
void FailXmodemQuietly(Board& board, const char* message);

uint16_t BoardCrc16(std::string_view data);
unsigned char BoardSum8(std::string_view data);

}  // namespace simulator
