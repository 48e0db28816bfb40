// The few calls through which all device traffic passes, whichever transport is up.
// Nothing blocks on the line: who wants a reply sleeps in fixed steps and asks again.
// Interface thread; SendBytes, SendByte, ReceiveBytes, TakeOffTelnet and SendAndWait also on a
// transfer worker, while the poll stands aside for it.
#pragma once

#include <QString>
#include <cstdint>

#include "base/DecodeLinkText.h"
#include "link/Descriptor.h"

// Bytes that SendAndWait reads at the most in one go; less when the block is smaller.
constexpr int kReplyRead = 5120;

// The steps of the waits with a terminator. The two limits differ on purpose: a
// terminator that comes on step 200 or 201 ends the wait and is too late all the same.
// A reply never holds more than kReplySteps reads, whatever the device sends.
constexpr int kReplySteps = 201;
constexpr int kLastGoodStep = 199;
constexpr int64_t kReplyStepMs = 20;

// Delays of SendAndWait with a meaning of their own.
constexpr int64_t kWaitForLine = -1;
constexpr int64_t kWaitForPrompt = -2;
extern const QString kTimeout;  // "***TIMEOUT***"

// Bytes that a serial line takes whole when it says that it takes any: Linux says so while
// fewer than 256 wait in the driver, whose buffer has 4096 as a rule.
constexpr int kSerialRoom = 2048;

// Allocates the two blocks of `Comms buffer size` bytes, filled with zeros; frees them.
// A block that is used before is allocated by that use.
void AllocateLinkBuffers();
void FreeLinkBuffers();

// The block for arrived bytes and the staging block, and their size in bytes. They are
// the program's on the interface thread; any other thread has a pair of its own, since
// keys are typed and staged while a worker talks to the device.
uint8_t* RxBuffer();
uint8_t* TxBuffer();
int LinkBufferSize();

// Writes to the transport in one call, with no retry. Its result, or -1 with no link.
int64_t SendBytes(const void* buffer, int64_t count);
// How many bytes SendBytes can be given now without a wait or a loss: 0 while the line
// still holds earlier ones. No link takes any number. Any thread.
int LinkRoom();
// One byte for each code unit below 256, others left out; the count sent is the text's
// length all the same: a 0 byte stands behind the last character, and bytes of earlier
// texts make up the count. A text longer than the block goes in pieces of the block's
// size, and a piece that is not taken whole is the last. The count that was taken, -1
// with no link, 0 for an empty text.
int64_t SendText(const QString& text);
// The value's low byte; below 1 sends nothing and gives 0. -1 with no link.
int32_t SendByte(int64_t value);
// Takes what waits, at most `maximum` bytes, and leaves the rest of the buffer as it
// was. 0 for nothing, -1 for no link.
int64_t ReceiveBytes(void* buffer, int64_t maximum);
// Makes bytes that ReceiveBytes gave ready to be read as text: where the user chose so, what
// came over TCP loses its telnet coding, in place, and the peer's negotiations are refused.
// The count that stays.
int64_t TakeOffTelnet(uint8_t* bytes, int64_t count);
// The descriptor of the transport in force.
const SharedDescriptor& LinkDescriptor();
// What one read of it can bring at the most: after such a read more may wait.
int LargestRead();
// Waits until a byte has come or `ms` milliseconds have passed. A short wait: whoever
// closes the link meanwhile waits with it.
void AwaitBytes(int64_t ms);
// Sends, then collects a reply: above 0 a fixed wait in milliseconds and one read,
// kWaitForLine until a "\n" came, kWaitForPrompt (as any other value) until a ">" came,
// or 0 for the line delay. Waits for a terminator end with kTimeout after 4020 ms. Each
// byte becomes the character of its number; what one read brings ends at its first 0.
QString SendAndWait(const QString& text, int64_t delay);
// Sends, waits for the line delay, prints the reply with at most two line-end
// characters cut from its end, gives an empty text.
QString SendCommandLine(const QString& text, bool appendEol);
