#include "xmodem/Frame.h"

#include <cstring>

#include "xmodem/XmodemReport.h"

namespace {

constexpr uint16_t kCrcPolynomial = 0x1021;

}  // namespace

uint8_t Sum8(const uint8_t* block, int count) {
    uint8_t sum = 0;
    for (int i = 1; i <= count; ++i) sum = static_cast<uint8_t>(sum + block[i]);
    return sum;
}

uint16_t Crc16(const uint8_t* bytes, int count) {
    uint16_t crc = 0;
    for (int i = 0; i < count; ++i) {
        crc = static_cast<uint16_t>(crc ^ (bytes[i] << 8));
        for (int bit = 0; bit < 8; ++bit) {
            const bool carry = (crc & 0x8000) != 0;
            crc = static_cast<uint16_t>(crc << 1);
            if (carry) crc ^= kCrcPolynomial;
        }
    }
    return crc;
}

// Both checks are given the address of the complement byte. The sum leaves that byte out
// and so covers the data; the CRC takes it in and leaves the last byte of data out, one
// place off. It stays so: the devices ask for the sum, and of the two bytes of the CRC
// only the first is ever sent.
void BuildFrame(uint8_t* frame, const uint8_t* data, int64_t number, bool useCrc) {
    frame[0] = kSoh;
    frame[kFrameNumber] = static_cast<uint8_t>(number);
    frame[kFrameComplement] = static_cast<uint8_t>(~number);
    memcpy(frame + kFrameData, data, kShortBlock);
    uint8_t* const check = frame + kFrameData + kShortBlock;
    if (!useCrc) {
        *check = Sum8(frame + kFrameComplement, kShortBlock);
        return;
    }
    const uint16_t crc = Crc16(frame + kFrameComplement, kShortBlock);
    check[0] = static_cast<uint8_t>(crc >> 8);
    check[1] = static_cast<uint8_t>(crc);
}

// The repeat is looked for in wide integers, so a repeated block 255 where block 256 (0
// on the wire) is due counts as a wrong number. Required.
int FaultOfNumber(const uint8_t* frame, uint8_t expected) {
    const int number = frame[kFrameNumber];
    if (number + 1 == expected) return kRepeatedBlock;
    if (number != expected) return kWrongNumber;
    if (frame[kFrameComplement] != static_cast<uint8_t>(~expected)) return kWrongComplement;
    return 0;
}

bool SumIsRight(const uint8_t* frame, int blockSize) {
    return frame[kFrameData + blockSize] == Sum8(frame + kFrameComplement, blockSize);
}
