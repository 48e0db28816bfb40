// A simulated board on a stepped clock, and short ways to talk to it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/SimulatedBoard.h"

namespace {

using namespace simulator;

// ESC sequences of the prompts, as the firmwares send them.
const std::string kQuiet = "> \x1b[?7h";
const std::string kLead603 = "\x1b[?25h\x1b[97;40m", kLoud603 = kLead603 + kQuiet;
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

    // Types a command: what comes behind its echo.
    std::string Type(const std::string& command, int64_t ms = 10000) {
        const std::string out = Say(command + "\r", ms), echo = command + "\r\n";
        EXPECT_EQ(out.substr(0, echo.size()), echo);
        return out.substr(std::min(out.size(), echo.size()));
    }

    void Follow(const std::vector<Step>& steps) {
        for (const Step& step : steps)
            EXPECT_EQ(Say(step.say, step.ms), step.answer) << "step " << &step - &steps[0];
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

    // Lines of commands between " | "; all are silent but a line's last, whose answer, up to
    // the prompt, stands behind " -> " with "#" for line ends.
    void ExpectDialogue(std::string script) {
        for (size_t end; (end = script.find_first_of("|\n")) != script.npos;) {
            const std::string step = script.substr(0, end);
            script.erase(0, end + 1 + (script[end] == '|'));
            const size_t arrow = std::min(step.find(" -> "), step.size());
            const std::string command = step.substr(0, step.find_last_not_of(' ', arrow - 1) + 1);
            if (command.empty()) continue;
            std::string answer = Type(command, 2000), lines;
            answer.erase(std::min({answer.find('\x1b'), answer.rfind("> "), answer.size()}));
            for (const char c : answer.substr(0, answer.find_last_not_of("\r\n") + 1)) {
                if (c != '\r') lines += c == '\n' ? '#' : c;
            }
            EXPECT_EQ(lines, arrow < step.size() ? step.substr(arrow + 4) : "") << command;
        }
    }

    SimulatedBoard board;
    std::string signOn;
    int64_t now = 1000;
};

}  // namespace
