// Transfers over a line that spoils messages, to and from a device of the tests' own.
// Whatever is called complete must be right, and what failed leaves no file on the PC.
#include <random>

#include "tests/xmodem/transfer_bench.h"

namespace {

std::mt19937 dice;

int Roll(int sides) {
    return int(dice() % unsigned(sides));
}

std::string RandomBytes(int count) {
    std::string bytes(count, 0);
    for (char& byte : bytes) byte = char(Roll(256));
    return bytes;
}

// One fault in every eighth message. Left out are the two that the protocol's user cannot
// see as it reads frames: a number that turns into the one before is acknowledged as a
// repeat, and without its SOH block 4 begins with EOT.
std::string Spoiled(std::string message) {
    if (message.empty() || Roll(8)) return message;
    const int at = Roll(message.size()), kind = Roll(3);
    if (kind == 1) return message.insert(at, 1, message[at]);
    if (kind == 2 && at != 1) message[at] ^= 1 << Roll(8);
    if (kind == 0 && (at || message.size() < 2 || message[1] != kEotByte)) message.erase(at, 1);
    return message;
}

struct FaultBench : TransferBench {
    FaultBench() {
        clock.onTick = [tick = clock.onTick](int64_t now) {
            if (now % 5 == 0) tick(now);
        };
    }
    // The link is new, and the user gives up after 100 s.
    template <typename Device>
    void Attach(Device& far) {
        commanded = false;
        Relink();
        device = [=, &far, end = clock.Now() + 100000](int64_t now, const std::string& came) {
            JobOf(Direction::kReceive).abort = now > end;
            return Spoiled(Act(far, now, commanded ? Spoiled(came) : came));
        };
    }
};

TEST_F(FaultBench, WhatIsCompleteIsRight) {
    int fetched = 0, stored = 0;
    for (int i = 0; i < 100 && !HasFailure(); ++i) {
        const size_t block = Roll(2) ? 1024 : 128;
        SendingDevice sender{Padded(RandomBytes(Roll(1500)), block), block};
        Attach(sender);
        QString printed = Fetch();
        const bool done = printed.endsWith("Completed OK");
        EXPECT_TRUE(done || printed.endsWith("File transfer failed")) << printed.toStdString();
        EXPECT_TRUE(Content() == (done ? sender.content : "(none)"));
        const std::string content = RandomBytes(1 + Roll(1500));
        ReceivingDevice receiver;
        Attach(receiver);
        printed = Store(content);
        const bool taken = printed.endsWith("Transfer completed OK!");
        EXPECT_NE(taken, printed.contains("Transfer failed")) << printed.toStdString();
        EXPECT_TRUE(!taken || receiver.content == Padded(content));
        fetched += done;
        stored += taken;
    }
    EXPECT_TRUE(fetched > 90 && stored > 80) << fetched << ' ' << stored;
}

}  // namespace
