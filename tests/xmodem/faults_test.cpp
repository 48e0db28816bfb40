// Transfers over a line with troubles, to and from a device of the tests' own. Whatever is
// called complete must be right, and what failed leaves no file on the PC.
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <random>

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

class FaultBench : public TransferBench {
  protected:
    FaultBench() {
        clock.onTick = [tick = clock.onTick](int64_t now) {
            if (now % 5 == 0) tick(now);
        };
    }
    // Whether the file was fetched, and as it is; none may be left when it was not.
    bool Fetched(const std::string& content) {
        const QString printed = Fetch();
        const bool done = printed.endsWith("Completed OK");
        EXPECT_TRUE(done || printed.endsWith("File transfer failed")) << printed.toStdString();
        EXPECT_EQ(FileThere(), done);
        EXPECT_TRUE(!done || Content() == content);
        return done;
    }
    // Whether the file was stored, and as it is.
    bool Stored(const std::string& content, const ReceivingDevice& far) {
        const QString printed = Store(content);
        const bool done = printed.endsWith("Transfer completed OK!");
        EXPECT_NE(done, printed.contains("Transfer failed")) << printed.toStdString();
        EXPECT_TRUE(!done || far.content == Padded(content));
        return done;
    }
    template <typename Device>
    void AttachSpoiling(Device& far) {
        commanded = false;
        device = [this, &far, limit = clock.Now() + 100000](int64_t now, const std::string& came) {
            if (now > limit) JobOf(Direction::kReceive).abort = true;  // as a user would
            return Spoiled(Act(far, now, commanded ? Spoiled(came) : came));
        };
    }
    template <typename Device>
    void AttachWithTrouble(Device& far, char trouble, int64_t after) {
        commanded = false;
        line.reset();
        line = std::make_unique<FarEnd>();
        device = [=, &far, from = clock.Now() + after](int64_t now, const std::string& came) {
            const bool endless = trouble != 'C' && trouble != 'X';
            if (endless && now > from + 2500) JobOf(Direction::kReceive).abort = true;
            const std::string answer = Act(far, now, came);
            if (now < from || trouble == 'O') return answer;
            if (trouble == 'X') AdoptSerialLink(0);
            if (trouble == 'H') line->Close();
            return trouble == 'C' ? "\x18" : trouble == 'N' ? "\x15" : std::string();
        };
    }
};

TEST_F(FaultBench, WhatIsCompleteIsRight) {
    const char* given = getenv("KWCC_SEED");
    const unsigned seed = given ? strtoul(given, nullptr, 10) : std::random_device()();
    std::cout << "KWCC_SEED=" << seed << std::endl;
    dice.seed(seed);
    int fetched = 0, stored = 0;
    for (int i = 0; i < 500; ++i) {
        SendingDevice sender;
        sender.block = Roll(2) ? 1024 : 128;
        sender.content = Padded(RandomBytes(Roll(1500)), sender.block);
        AttachSpoiling(sender);
        fetched += Fetched(sender.content);
        ReceivingDevice receiver;
        AttachSpoiling(receiver);
        stored += Stored(RandomBytes(1 + Roll(1500)), receiver);
        ASSERT_FALSE(HasFailure());
    }
    std::cout << fetched << " fetched and " << stored << " stored, of 500 each" << std::endl;
    EXPECT_GT(fetched, 450);
    EXPECT_GT(stored, 400);
}

// Silence, storms of CAN and NAK, a link that is closed here or hung up there, from every
// moment of a transfer on. A sender, CAN and a closed link end a transfer by themselves; of
// the rest the user may have to, as the first byte of the last frame stays in sight.
TEST_F(FaultBench, ATroubleThatStaysFromAnyMomentOn) {
    signal(SIGPIPE, SIG_IGN);
    const std::string content(384, 'e');
    for (const char trouble : {'S', 'C', 'N', 'X', 'H'}) {
        int good = 0;
        for (int i = 0; i < 30; ++i) {
            SendingDevice sender;
            sender.content = content;
            AttachWithTrouble(sender, trouble, 20 * i);
            good += Fetched(content);
            ReceivingDevice receiver;
            AttachWithTrouble(receiver, trouble, 150 * i);
            good += Stored(content, receiver);
        }
        EXPECT_TRUE(good > 10 && good < 45) << trouble << good;
    }
}

// Seen from the worker a folder that is closed to it, a file that is, and a disk that runs
// full are alike: zeros are read, writes do nothing, and no word is said.
TEST_F(FaultBench, FilesOfThePcThatCannotBeUsed) {
    const std::string here = folder.path().toStdString(), zeros(256, '\0');
    mkfifo((here + "/pipe").c_str(), 0600);
    WriteFile(here + "/locked", std::string(200, 'l'));
    chmod((here + "/locked").c_str(), 0);
    for (const char* name : {"/none/pc.bin", "", "/pipe", "/new", "/locked"}) {
        const int there = access((here + name).c_str(), F_OK);
        const bool locked = !strcmp(name, "/new") || !strcmp(name, "/locked");
        chmod(here.c_str(), locked ? 0555 : 0700);
        setfsuid(locked ? 65534 : geteuid());  // root reads and writes everything
        for (const char trouble : {'O', 'C'}) {
            SendingDevice sender;
            sender.content = zeros;
            AttachWithTrouble(sender, trouble, 0);
            const QString printed = Transfer(Direction::kReceive, here + name);
            EXPECT_TRUE(printed.endsWith(trouble == 'O' ? "Completed OK" : "transfer failed"));
            EXPECT_EQ(access((here + name).c_str(), F_OK), there) << name;
        }
        ReceivingDevice receiver;
        AttachWithTrouble(receiver, 'O', 0);
        EXPECT_TRUE(Transfer(Direction::kSend, here + name).endsWith("completed OK!"));
        EXPECT_EQ(receiver.content, zeros.substr(strcmp(name, "/locked") ? 128 : 0)) << name;
    }
    setfsuid(geteuid());
    chmod(here.c_str(), 0700);

    signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full = {200, before.rlim_max};
    for (const bool fails : {false, true}) {
        setrlimit(RLIMIT_FSIZE, &full);
        SendingDevice sender;
        sender.content = RandomBytes(512);
        AttachWithTrouble(sender, 'C', fails ? 450 : 5000);
        // There is room again before the last two blocks.
        device = [=, act = device, from = clock.Now() + 425](int64_t now, const std::string& came) {
            if (now >= from) setrlimit(RLIMIT_FSIZE, &before);
            return act(now, came);
        };
        EXPECT_TRUE(Fetch().endsWith(fails ? "File transfer failed" : "Completed OK"));
        EXPECT_EQ(Content(), fails ? "" : sender.content.substr(0, 200));
        EXPECT_NE(FileThere(), fails);
    }
    setrlimit(RLIMIT_FSIZE, &before);
}

}  // namespace
