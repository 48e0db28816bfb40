// The two checks and the judgement of a frame's number.
#include "xmodem/Frame.h"

#include <gtest/gtest.h>

#include "xmodem/XmodemReport.h"

namespace {

const uint8_t* Bytes(const char* text) {
    return reinterpret_cast<const uint8_t*>(text);
}

TEST(Frame, Checks) {
    EXPECT_EQ(Crc16(Bytes("123456789"), 9), 0x31C3);  // the check value of CRC-16/XMODEM
    EXPECT_EQ(Crc16(Bytes(""), 0), 0);
    EXPECT_EQ(Crc16(Bytes("\x80"), 1), 0x9188);
    EXPECT_EQ(Sum8(Bytes("\xFF\1\2\3"), 3), 6);  // the first byte is left out
    EXPECT_EQ(Sum8(Bytes("x\xFF\xFF"), 2), 0xFE);
}

TEST(Frame, EveryNumberIsJudged) {
    for (int expected = 0; expected < 256; ++expected) {
        for (int number = 0; number < 256; ++number) {
            const bool repeated = number == expected - 1;
            const int fault = repeated ? kRepeatedBlock : number == expected ? 0 : kWrongNumber;
            for (const int spoiled : {0, 0x40}) {
                const uint8_t frame[] = {kSoh, uint8_t(number), uint8_t((255 - number) ^ spoiled)};
                const int both = !fault && spoiled ? kWrongComplement : fault;
                ASSERT_EQ(FaultOfNumber(frame, uint8_t(expected)), both) << number;
            }
        }
    }
}

}  // namespace
