// Bytes out and in, and the waits for a reply, at their step boundaries on the virtual
// clock; the device is the far end of a socket pair.
#include <gtest/gtest.h>

#include <thread>

#include "base/LineEnding.h"
#include "link/LinkPrimitives.h"
#include "link/LinkSettings.h"
#include "terminal/screen/Capture.h"
#include "tests/support/FarEnd.h"
#include "tests/support/VirtualClock.h"

namespace {

void UseBlocksOf(int size) {
    LinkSettingsForTable().commsBufferSize = size;
    AllocateLinkBuffers();
}

TEST(Primitives, BytesOverBothTransports) {
    VirtualClock clock;
    char block[6] = "-----";
    for (const bool overTcp : {false, true}) {
        SetDeviceOnTcpip(overTcp);
        EXPECT_EQ(SendText(""), 0);
        EXPECT_EQ(SendText("x"), -1);
        EXPECT_EQ(SendByte(0), -1);
        EXPECT_EQ(ReceiveBytes(block, 5), -1);
        EXPECT_EQ(SendAndWait("x", kWaitForLine), "***TIMEOUT***");
        FarEnd device(overTcp);
        EXPECT_EQ(SendBytes("a\0b", 3), 3);
        for (const int value : {256, 255, 0, -7}) EXPECT_EQ(SendByte(value), value > 0) << value;
        EXPECT_EQ(device.Read(), std::string("a\0b\0\xFF", 5));
        EXPECT_EQ(ReceiveBytes(block, 5), 0);
        device.Write("1234");
        for (const int none : {0, -1}) EXPECT_EQ(ReceiveBytes(block, none), 0);
        EXPECT_EQ(ReceiveBytes(block, 3), 3);
        EXPECT_EQ(ReceiveBytes(block, 5), 1);
        EXPECT_EQ(std::string(block, 3), "423");
        SetDeviceOnTcpip(!overTcp);  // a link on the other transport
        EXPECT_EQ(SendByte(0), 0);
        EXPECT_EQ(SendByte('a'), -1);
        SetDeviceOnTcpip(overTcp);
        device.Close();  // reads like a quiet line
        EXPECT_EQ(ReceiveBytes(block, 5), 0);
        EXPECT_TRUE(!overTcp || SendText("no signal ends the program") == -1);
    }
}

TEST(Primitives, TextOut) {
    UseBlocksOf(2048);
    FarEnd device;
    std::string bytes;
    for (int unit = 0; unit < 256; ++unit) bytes += static_cast<char>(unit);
    SendText(QString::fromLatin1(bytes.data(), 256));
    EXPECT_EQ(device.Read(), bytes);
    // Around the block's size: whole and in order, then the 0 byte; the count stands.
    for (const int length : {2047, 2048, 2049, 3 * 2048 + 5}) {
        std::string text(length, ' ');
        for (int i = 0; i < length; ++i) text[i] = static_cast<char>('a' + i % 26);
        EXPECT_EQ(SendText(QString::fromStdString(text)), length);
        EXPECT_EQ(device.Read(), text);
        EXPECT_EQ(SendText("→→" + QString::fromStdString(text)), length + 2);
        EXPECT_EQ(device.Read().substr(0, length + 1), text + '\0');
    }
    // What the kernel does not take is lost.
    const int64_t taken = SendText(QString(4 << 20, 'x'));
    EXPECT_LT(taken, 4 << 20);
    EXPECT_EQ(SendText("lost"), 0);
    EXPECT_EQ(device.Read(), std::string(taken, 'x'));
}

TEST(Waits, TerminatorAtTheStepBoundaries) {
    // When the terminator comes, when the wait ends, in milliseconds, and whether in time.
    const struct {
        int at, end;
        bool good;
    } cases[] = {{20, 20, true},
                 {21, 40, true},
                 {3980, 3980, true},
                 {3981, 4000, false},
                 {4021, 4020, false}};
    for (const int64_t delay : {kWaitForLine, kWaitForPrompt, int64_t{-99}}) {
        const std::string other = delay == kWaitForLine ? "ok> " : "ok\r\n";
        const std::string terminator = delay == kWaitForLine ? "\n" : ">";
        for (const auto& each : cases) {
            VirtualClock clock;
            FarEnd device(delay == kWaitForLine);
            device.Write(other);
            clock.onTick = [&](int64_t now) {
                if (now == each.at) device.Write(terminator);
            };
            EXPECT_EQ(SendAndWait("NEW", delay).toStdString(),
                      each.good ? other + terminator : "***TIMEOUT***");
            EXPECT_EQ(clock.Now(), each.end) << delay << " " << each.at;
            EXPECT_EQ(device.Read(), "NEW");
        }
    }
}

TEST(Waits, FixedWaitReadsOnce) {
    VirtualClock clock;
    FarEnd device;
    LinkSettingsForTable().lineDelay = 150;
    clock.onTick = [&](int64_t now) {
        if (now == 100 || now == 101) device.Write("a");
    };
    EXPECT_EQ(SendAndWait("", 100), "a");
    EXPECT_EQ(SendAndWait("", 0), "a");
    EXPECT_EQ(SendAndWait("q", 30), "");
    LinkSettingsForTable().lineDelay = 0;  // makes a delay of 0 a wait for the prompt
    device.Write("echo\n>");
    EXPECT_EQ(SendAndWait("", 0), "echo\n>");
    EXPECT_EQ(clock.Now(), 100 + 150 + 30 + 20);
}

TEST(Waits, WhatOneReadHolds) {
    VirtualClock clock;
    FarEnd device;
    // 8-bit characters, and nothing behind a 0 byte of the same read.
    device.Write(std::string("\x80\xFFz\0lost>", 9));
    clock.onTick = [&](int64_t now) {
        if (now == 50) device.Write("more>");
    };
    EXPECT_EQ(SendAndWait("", kWaitForPrompt), QString(QChar(0x80)) + QChar(0xFF) + "zmore>");
    // At most 5120 bytes, and no more than the block holds.
    for (const int size : {65536, 2048}) {
        UseBlocksOf(size);
        device.Write(std::string(6000, 'r'));
        EXPECT_EQ(SendAndWait("", 1).size(), std::min(size, 5120));
        EXPECT_EQ(SendAndWait("", kWaitForLine), kTimeout);  // and takes the rest
    }
}

TEST(CommandLine, CutsTwoLineEndCharactersAndPrints) {
    VirtualClock clock;
    FarEnd device;
    SetLineEnding("CR");
    const char* const cases[][2] = {{"a\r\n\r\n", "a\r\n"}, {"\n", ""}, {"a\r\nb", "a\r\nb"}};
    for (const auto& [reply, shown] : cases) {
        device.Write(reply);
        StartCapture();
        EXPECT_EQ(SendCommandLine("RUN", true), "");
        EXPECT_EQ(TakeCapture(), shown);
        EXPECT_EQ(device.Read(), "RUN\r");
    }
}

// Disconnecting ends a worker's send that waits for a far end which reads nothing. And a
// key typed while a worker stages its command must not end up inside it.
TEST(Threads, AWorkerOnALinkThatIsClosed) {
    FarEnd device(true);
    std::atomic<int64_t> sent{0};
    const uint8_t* const staging = TxBuffer();
    std::thread worker([&] {
        EXPECT_NE(TxBuffer(), staging);
        for (int64_t n = 1; n > 0; sent += n) n = SendBytes(TxBuffer(), LinkBufferSize());
    });
    while (sent < 65536) std::this_thread::yield();
    AdoptTcpLink(0);
    worker.join();
    EXPECT_EQ(SendByte('x'), -1);
}

}  // namespace
