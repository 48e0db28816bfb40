// A thousand transfers over a line that loses, doubles and flips bytes, to and from a
// device of the tests' own. Whatever is called complete must be right.
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>

#include "tests/xmodem/transfer_bench.h"

namespace {

std::mt19937 dice;

int Roll(int sides) {
    return std::uniform_int_distribution<int>(0, sides - 1)(dice);
}

// One fault in every eighth message. Left out are the two that the protocol's user cannot
// see as it reads frames: a number that turns into the one before is acknowledged as a
// repeat, and without its SOH block 4 begins with EOT.
std::string Spoiled(std::string message) {
    if (message.empty() || Roll(8)) return message;
    const int at = Roll(message.size());
    switch (Roll(3)) {
        case 0:
            if (message.size() > 1 && message[1] == kEotByte && at == 0) return message;
            return message.erase(at, 1);
        case 1:
            return message.insert(at, 1, message[at]);
        default:
            if (at != 1) message[at] ^= 1 << Roll(8);
            return message;
    }
}

// The sending device: a frame for each NAK and ACK, the last one again after 3 s.
struct SendingDevice {
    std::string content;
    size_t block = 128, next = 0;
    int64_t lastSent = 0;
    int errors = 0;

    std::string Act(int64_t now, const std::string& came) {
        const size_t verdict = came.find_first_of({kAckByte, kNakByte, kCanByte});
        if (errors > 25 || (verdict == std::string::npos && now < lastSent + 3000)) return "";
        const char byte = verdict == std::string::npos ? kNakByte : came[verdict];
        if (byte == kCanByte) errors = 99;
        byte == kAckByte ? ++next : ++errors;
        lastSent = now;
        if (next * block > content.size()) return "";
        if (next * block == content.size()) return {kEotByte};
        return FrameOf(next + 1, content.substr(next * block, block));
    }
};

// The receiving device: strict on frames, and silent while a line is not.
struct ReceivingDevice {
    std::string content, frame;
    int64_t lastByte = 0, lastAsked = -2000;

    std::string Act(int64_t now, const std::string& came) {
        frame += came;
        if (!came.empty()) lastByte = now;
        if (frame.size() == 132) return Judge();
        if (frame.empty()) {
            if (!content.empty() || now < lastAsked + 2000) return "";
            lastAsked = now;
            return {kNakByte};
        }
        if (now < lastByte + 100) return "";
        const bool end = frame == std::string(1, kEotByte);
        frame.clear();
        return std::string(1, end ? kAckByte : kNakByte);
    }
    std::string Judge() {
        const int due = content.size() / 128 + 1;
        const std::string data = frame.substr(3, 128);
        const bool wanted = frame == FrameOf(due, data), again = frame == FrameOf(due - 1, data);
        if (wanted) content += data;
        frame.clear();
        return std::string(1, wanted || again ? kAckByte : kNakByte);
    }
};

class FaultBench : public TransferBench {
  protected:
    FaultBench() {
        const char* given = getenv("KWCC_SEED");
        const unsigned seed = given ? strtoul(given, nullptr, 10) : std::random_device()();
        std::cout << "KWCC_SEED=" << seed << std::endl;
        RecordProperty("seed", std::to_string(seed));
        dice.seed(seed);
        clock.onTick = [tick = clock.onTick](int64_t now) {
            if (now % 5 == 0) tick(now);
        };
    }
    template <typename Device>
    void Attach(Device& far) {
        const int64_t limit = clock.Now() + 100000;
        running = false;
        device = [this, &far, limit](int64_t now, const std::string& came) -> std::string {
            if (now > limit) JobOf(Direction::kReceive).abort = true;  // as a user would
            if (!running) return running = came.find("XMODEM") != std::string::npos, "";
            return Spoiled(far.Act(now, Spoiled(came)));
        };
    }
    static std::string RandomBytes(int count) {
        std::string bytes(count, 0);
        for (char& byte : bytes) byte = char(Roll(256));
        return bytes;
    }
    bool running = false;
};

TEST_F(FaultBench, WhatIsCompleteIsRight) {
    int fetched = 0, stored = 0;
    for (int i = 0; i < 500; ++i) {
        SendingDevice sender;
        sender.block = Roll(2) ? 1024 : 128;
        sender.content = Padded(RandomBytes(Roll(1500)), sender.block);
        Attach(sender);
        if (Fetch().endsWith("Completed OK")) {
            ++fetched;
            ASSERT_EQ(Content(), sender.content);
        } else {
            ASSERT_FALSE(FileThere());
        }
        ReceivingDevice receiver;
        Attach(receiver);
        const std::string content = RandomBytes(1 + Roll(1500));
        if (Store(content).endsWith("Transfer completed OK!")) {
            ++stored;
            ASSERT_EQ(receiver.content, Padded(content));
        }
    }
    std::cout << fetched << " fetched, " << stored << " stored" << std::endl;
    EXPECT_GT(fetched, 450);
    EXPECT_GT(stored, 400);
}

}  // namespace
