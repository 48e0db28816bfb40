// The small BASIC of the simulated board: its state, and how a line or a program runs.
// Programs are run from their text, statement by statement, a few for each millisecond
// of board time. Every store and depth is bounded, so no program can hang the board.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {
struct Board;

constexpr size_t kMaximumString = 255;  // characters of a string value
constexpr size_t kMaximumVariables = 512;
constexpr size_t kMaximumName = 32;
constexpr size_t kMaximumElements = 16384;  // of all arrays together
constexpr size_t kMaximumNesting = 50;      // FOR and DO
constexpr int kMaximumDepth = 32;           // brackets and functions in an expression

// A place in the line that was typed, or in the program.
struct BasicPlace {
    bool direct = true;
    int line = 0;   // index into the program
    size_t at = 0;  // character of the line
};

struct BasicValue {
    bool isText = false;
    double number = 0;
    std::string text;
    bool isWhole = false;  // a variable with "%" keeps whole numbers only
};

struct BasicVariable {
    BasicValue value;
    std::vector<BasicValue> elements;  // of an array; empty: no array
};

struct BasicLoop {
    bool isFor = false;
    std::string variable;  // of a FOR
    double limit = 0;
    double step = 0;
    BasicPlace body;  // FOR: behind the head; DO: behind the word DO
};

struct BasicMachine {
    std::string directLine;
    BasicPlace place;      // the cursor
    BasicPlace statement;  // start of the current statement
    BasicPlace failedAt;
    bool failed = false;  // `error` is to be printed
    std::string error;
    int depth = 0;        // of the expression
    int64_t sliceAt = 0;  // ms of the last slice
    int64_t cost = 0;     // statements run since, or a debt that is left of them
    std::map<std::string, BasicVariable> variables;
    size_t elements = 0;  // of all arrays
    std::vector<BasicLoop> loops;
    int64_t timerStart = 0;  // ms
    std::string inputName;   // of the INPUT that waits
};

// Runs one line that was entered at the prompt.
void StartDirectLine(Board& board, const std::string& line);

// Runs the program from its first line, with no variables.
void RunProgram(Board& board);

// Goes on behind a command that took its time.
void ResumeBasic(Board& board);

// Does a line or a program have the console?
bool BasicIsRunning(const Board& board);

// Work on so many bytes takes its time from the statements that follow.
void ChargeWork(Board& board, size_t bytes);

// Nothing runs any more. Variables stay.
void StopProgram(Board& board);

void ClearVariables(Board& board);

// Sets the error of the current statement, unless there is one already. Always false.
bool Fail(Board& board, std::string_view message);

// The same at the end of a procedure with no result.
void Refuse(Board& board, std::string_view message);

}  // namespace simulator
