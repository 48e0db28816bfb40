// Transfers over a line with troubles, to and from a device of the tests' own. Whatever is
// called complete must be right, and what failed leaves no file on the PC.
#include <QDir>
#include <csignal>
#include <iostream>
#include <random>

#include "tests/support/Chosen.h"
#include "tests/xmodem/transfer_bench.h"

namespace {

std::mt19937 dice;

int Roll(int sides) {
    return std::uniform_int_distribution<int>(0, sides - 1)(dice);
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

// Of a line: none, spoilt messages, silence, CAN or NAK for ever, and a link that is closed
// here or hung up there. A sender, CAN and a closed link end a transfer by themselves; of
// the rest the user may have to, as the first byte of the last frame stays in sight.
enum class Trouble { kNone, kSpoils, kSilence, kCans, kNaks, kClosed, kHungUp };

class FaultBench : public TransferBench {
  protected:
    FaultBench() {
        clock.onTick = [tick = clock.onTick](int64_t now) {
            if (now % 5 == 0) tick(now);
        };
    }
    // The trouble begins `after` ms.
    template <typename Device>
    void Attach(Device& far, Trouble trouble, int64_t after = 0) {
        commanded = false;
        Relink();
        device = [=, &far, from = clock.Now() + after](int64_t now, const std::string& came) {
            const bool endless = trouble != Trouble::kCans && trouble != Trouble::kClosed;
            if (endless && now > from + 2500) JobOf(Direction::kReceive).abort = true;
            if (trouble == Trouble::kSpoils)
                return Spoiled(Act(far, now, commanded ? Spoiled(came) : came));
            const std::string answer = Act(far, now, came);
            if (now < from || trouble == Trouble::kNone) return answer;
            if (trouble == Trouble::kClosed) AdoptSerialLink(0);
            if (trouble == Trouble::kHungUp) line->Close();
            if (trouble == Trouble::kCans) return std::string(1, kCanByte);
            return std::string(trouble == Trouble::kNaks, kNakByte);
        };
    }
    // Whether the file was fetched, and as it is; none may be left when it was not.
    bool Fetched(SendingDevice far, Trouble trouble, int64_t after) {
        Attach(far, trouble, after);
        const QString printed = Fetch();
        const bool done = printed.endsWith("Completed OK");
        EXPECT_TRUE(done || printed.endsWith("File transfer failed")) << printed.toStdString();
        EXPECT_TRUE(Content() == (done ? far.content : "(none)"));
        return done;
    }
    // Whether the file was stored, and as it is.
    bool Stored(const std::string& content, Trouble trouble, int64_t after) {
        ReceivingDevice far;
        Attach(far, trouble, after);
        const QString printed = Store(content);
        const bool done = printed.endsWith("Transfer completed OK!");
        EXPECT_NE(done, printed.contains("Transfer failed")) << printed.toStdString();
        EXPECT_TRUE(!done || far.content == Padded(content));
        return done;
    }
};

TEST_F(FaultBench, WhatIsCompleteIsRight) {
    const char* given = getenv("KWCC_SEED");
    const unsigned seed = given ? strtoul(given, nullptr, 10) : std::random_device()();
    std::cout << "KWCC_SEED=" << seed << std::endl;
    dice.seed(seed);
    int fetched = 0, stored = 0;
    for (int i = 0; i < 500 && !HasFailure(); ++i) {
        const size_t block = Roll(2) ? 1024 : 128;
        const std::string content = Padded(RandomBytes(Roll(1500)), block);
        fetched += Fetched({content, block}, Trouble::kSpoils, 100000);
        stored += Stored(RandomBytes(1 + Roll(1500)), Trouble::kSpoils, 100000);
    }
    std::cout << fetched << " fetched and " << stored << " stored, of 500 each" << std::endl;
    EXPECT_GT(fetched, 450);
    EXPECT_GT(stored, 400);
}

TEST_F(FaultBench, ATroubleThatStaysFromAnyMomentOn) {
    signal(SIGPIPE, SIG_IGN);
    const std::string content(384, 'e');
    for (int i = int(Trouble::kSilence); i <= int(Trouble::kHungUp); ++i) {
        int good = 0;
        for (int step = 0; step < 30; ++step) {
            good += Fetched({content}, Trouble(i), 20 * step);
            good += Stored(content, Trouble(i), 150 * step);
        }
        EXPECT_TRUE(good > 10 && good < 45) << i << ' ' << good;
    }
}

// The file that was there stands until all of the new one is, and nothing lies beside it.
TEST_F(FaultBench, FilesThatAreReplacedWhenComplete) {
    const Chosen complete(&Choices::replaceWhenComplete);
    Write("old");
    for (const auto& [trouble, name, kept] : {std::tuple(Trouble::kCans, "pc.bin", "old"),
                                              {Trouble::kNone, "none/pc.bin", "old"},
                                              {Trouble::kNone, "pc.bin", "the new file"}}) {
        SendingDevice sender{Padded("the new file")};
        Attach(sender, trouble, 300);
        const bool done = QString(kept) != "old";
        EXPECT_TRUE(Transfer(Direction::kReceive, name)
                        .endsWith(done ? "Completed OK" : "File transfer failed"));
        EXPECT_EQ(Content(), done ? sender.content : kept);
        EXPECT_EQ(QDir().entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("pc.bin"));
    }
}

}  // namespace
