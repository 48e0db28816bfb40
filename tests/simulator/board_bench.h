// A simulated board on a stepped clock, and short ways to talk to it.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "simulator/SimulatedBoard.h"

// ESC sequences of the prompts, as the firmwares send them.
const std::string kTail603 = "\x1b[?7h";
const std::string kLoud603 = "\x1b[?25h\x1b[97;40m> \x1b[?7h";

class BoardBench {
  public:
    explicit BoardBench(const char* family = "picomite", const BoardSetup& setup = BoardSetup())
        : board(*FindBoardFacts(family), setup) {
        board.PowerUp(now);
        signOn = board.TakeOutput();
    }

    // Sends the bytes and gives what came back within `ms`, stepped as NextWake asks.
    std::string Say(const std::string& bytes, int64_t ms = 10000) {
        board.Receive(bytes, now);
        return Wait(ms);
    }

    // What comes within `ms`.
    std::string Wait(int64_t ms) {
        const int64_t end = now + ms;
        std::string all = board.TakeOutput();
        while (board.NextWake() <= end) {
            now = std::max(now, board.NextWake());
            board.Advance(now);
            all += board.TakeOutput();
        }
        now = end;
        board.Advance(now);
        return all + board.TakeOutput();
    }

    // Milliseconds until the next byte comes; -1 if none does within `limit`.
    int64_t TimeToNextByte(std::string* bytes = nullptr, int64_t limit = 100000) {
        for (int64_t ms = 0; ms <= limit; ++ms) {
            const std::string some = Wait(ms == 0 ? 0 : 1);
            if (some.empty()) continue;
            if (bytes) *bytes = some;
            return ms;
        }
        return -1;
    }

    // Puts a program into memory and runs it: what it prints, without prompt sequences.
    std::string RunText(const std::string& program) {
        Say("NEW\r");
        Say("AUTOSAVE\r" + program + "\x1a");
        std::string out = Say("RUN\r", 30000);
        out.erase(0, out.find('\n') + 1);
        const size_t end = out.rfind("\x1b[?25h");
        return end == std::string::npos ? out : out.substr(0, end);
    }

    SimulatedBoard board;
    std::string signOn;
    int64_t now = 1000;
};
