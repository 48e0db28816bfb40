// A simulated board on a stepped clock, and short ways to talk to it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "simulator/SimulatedBoard.h"

namespace {

using namespace simulator;

const std::string kQuiet = "> \x1b[?7h", kLead603 = "\x1b[?25h\x1b[97;40m";
const std::string kLoud603 = kLead603 + kQuiet;

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

    // Behind its echo, what a command says in 2 s up to the prompt, with "#" for line ends. Of
    // several, parted by "|", what the last one says.
    std::string Told(std::string command) {
        for (size_t bar; (bar = command.find('|')) != command.npos; command.erase(0, bar + 1))
            Say(command.substr(0, bar) + '\r', 2000);
        std::string answer = Say(command + '\r', 2000).substr(command.size() + 2);
        answer.erase(std::min({answer.rfind("\x1b[?25h"), answer.rfind("> "), answer.size()}));
        answer.erase(std::remove(answer.begin(), answer.end(), '\r'), answer.end());
        std::replace(answer.begin(), answer.end(), '\n', '#');
        return answer;
    }

    // What a program prints that runs for 2 s; "|" stands for its line ends.
    std::string Printed(std::string program) {
        std::replace(program.begin(), program.end(), '|', '\r');
        Say("AUTOSAVE\r" + program + "\x1a");
        return Told("RUN");
    }

    // Rows of commands, or of programs, and behind " -> " what each says.
    void ExpectRows(const std::string& rows,
                    std::string (BoardBench::*says)(std::string) = &BoardBench::Told) {
        for (size_t at = 1, arrow, end; at < rows.size(); at = end + 1) {
            arrow = rows.find(" -> ", at);
            end = rows.find('\n', at);
            const std::string said = rows.substr(at, arrow - at);
            EXPECT_EQ((this->*says)(said), rows.substr(arrow + 4, end - arrow - 4)) << said;
        }
    }

    SimulatedBoard board;
    std::string signOn;
    int64_t now = 1000;
};

}  // namespace
