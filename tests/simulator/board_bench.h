// A simulated board on a stepped clock, and short ways to talk to it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/SimulatedBoard.h"

namespace {

using namespace simulator;

// ESC sequences of the prompts, as the firmwares send them.
const std::string kQuiet = "> \x1b[?7h", kLead603 = "\x1b[?25h\x1b[97;40m";
const std::string kLoud603 = kLead603 + kQuiet, kLoud600 = "\x1b[?25h> ";
const std::string kLoudCmm2 = "\x1b[?25h\x1b[37m\x1b[m\r\n> ";

inline bool Has(const std::string& text, const std::string& part) {
    return text.find(part) != text.npos;
}

// What is said to a board, how long it is listened to then (ms), and what comes.
struct Step {
    std::string say;
    int64_t ms;
    std::string answer;
};

struct BoardBench {
    explicit BoardBench(const char* family = "picomite", const BoardSetup& setup = BoardSetup())
        : board(*FindBoardFacts(family), setup) {
        board.PowerUp(now);
        signOn = board.TakeOutput();
    }

    // Sends the bytes and gives what came back within `ms`, stepped as NextWake asks.
    std::string Say(const std::string& bytes, int64_t ms = 10000) {
        board.Receive(bytes, now);
        const int64_t end = now + ms;
        std::string all = board.TakeOutput();
        for (int64_t wake; (wake = std::min(board.NextWake(), end)) < end;) {
            board.Advance(now = std::max(now, wake));
            all += board.TakeOutput();
        }
        board.Advance(now = end);
        return all + board.TakeOutput();
    }

    void Follow(const std::vector<Step>& steps) {
        for (const Step& step : steps)
            EXPECT_EQ(Say(step.say, step.ms), step.answer) << "step " << &step - &steps[0];
    }

    // Behind its echo, what a command says in 2 s up to the prompt, with "#" for line ends.
    std::string Told(const std::string& command) {
        std::string answer = Say(command + "\r", 2000).substr(command.size() + 2), told;
        answer.erase(std::min({answer.rfind("\x1b[?25h"), answer.rfind("> "), answer.size()}));
        for (const char c : answer) {
            if (c != '\r') told += c == '\n' ? '#' : c;
        }
        return told;
    }

    // Lines of commands, of which only the last says anything: what stands behind " -> ".
    void ExpectDialogue(std::string script) {
        for (size_t end; (end = script.find_first_of("|\n")) != script.npos;) {
            const std::string step = script.substr(0, end);
            script.erase(0, end + 1 + (script[end] == '|'));
            const size_t arrow = std::min(step.find(" -> "), step.size());
            const std::string command = step.substr(0, step.find_last_not_of(' ', arrow - 1) + 1);
            EXPECT_EQ(Told(command), arrow < step.size() ? step.substr(arrow + 4) + '#' : "")
                << command;
        }
    }

    SimulatedBoard board;
    std::string signOn;
    int64_t now = 1000;
};

}  // namespace
