// What the receiving side tells the user and answers the device when a frame is not taken
// as it came, or when the transfer ends early.
#pragma once

#include <cstdint>

// Codes up to kLastRetryCode ask for the frame again; those above end the transfer. The
// ones without a comment of their own are the vocabulary of the protocol and are raised
// by nothing at present.
constexpr int kShortFrame = 1;
constexpr int kLongFrame = 2;
constexpr int kWrongSum = 3;
constexpr int kWrongCrc = 4;  // not raised
constexpr int kWrongNumber = 5;
constexpr int kWrongComplement = 6;
constexpr int kRepeatedBlock = 7;    // answered ACK, as the block is held already
constexpr int kUnexpectedError = 8;  // not raised
constexpr int kLastRetryCode = 9;
constexpr int kCancelled = 10;      // not raised
constexpr int kAbortedByUser = 11;  // not raised
constexpr int kAbortedBySender = 12;
constexpr int kNoCarrier = 13;  // not raised
constexpr int kTooManyErrors = 14;

// What XmodemReport gives, beside 0 for a frame that nothing was reported of.
constexpr int kTryAgain = 1;
constexpr int kGiveUp = 2;

// Shows the text of `code` and, when it was shown, answers the device: NAK, ACK for a
// repeated block, or five CAN and five BS for a code above kLastRetryCode. `block` is the
// number that the text names. A code without a text shows an empty line. kTryAgain or
// kGiveUp. On the receive worker.
int XmodemReport(int64_t code, int64_t block);
