// XMODEM's frame (Christensen), as this program speaks it: 128 bytes of data out, 128 or
// 1024 bytes in, and a sum of eight bits. Pure procedures; any thread.
#pragma once

#include <cstdint>

// The bytes of the protocol.
constexpr uint8_t kSoh = 0x01;  // a frame with 128 bytes of data begins
constexpr uint8_t kStx = 0x02;  // a frame with 1024 bytes of data begins
constexpr uint8_t kEot = 0x04;
constexpr uint8_t kAck = 0x06;
constexpr uint8_t kBs = 0x08;
constexpr uint8_t kNak = 0x15;
constexpr uint8_t kCan = 0x18;
constexpr uint8_t kCrcRequest = 'C';

// SOH or STX; the block number modulo 256, the first being 1; its ones' complement; the
// data; the sum.
constexpr int kFrameNumber = 1;
constexpr int kFrameComplement = 2;
constexpr int kFrameData = 3;
constexpr int kFrameOverhead = 4;

constexpr int kShortBlock = 128;  // bytes of data behind SOH
constexpr int kLongBlock = 1024;  // bytes of data behind STX
constexpr int kSentFrame = kShortBlock + kFrameOverhead;

// Size of a worker's blocks: the longest frame with room to spare. No read brings more,
// and no copy goes past it.
constexpr int kWorkerBlock = 1040;
static_assert(kLongBlock + kFrameOverhead < kWorkerBlock, "a frame fits its block");

// The sum of block[1] to block[count], modulo 256. With the address of a frame's
// complement byte that is its data.
uint8_t Sum8(const uint8_t* block, int count);

// CRC-16/XMODEM of bytes[0] to bytes[count - 1].
uint16_t Crc16(const uint8_t* bytes, int count);

// Builds the frame of block `number` from kShortBlock bytes of data. With `useCrc` two
// check bytes stand behind the data in place of the sum.
void BuildFrame(uint8_t* frame, const uint8_t* data, int64_t number, bool useCrc);

// What is wrong with the number of a frame that arrived in full where block `expected`
// was due: a code of XmodemReport.h, 0 for nothing.
int FaultOfNumber(const uint8_t* frame, uint8_t expected);

// True when the frame's sum is that of its data.
bool SumIsRight(const uint8_t* frame, int blockSize);
