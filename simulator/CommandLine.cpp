#include "simulator/CommandLine.h"

#include "simulator/Board.h"
#include "simulator/ShellCommands.h"

namespace simulator {

namespace {

// "A:" alone changes the drive.
bool IsDriveName(std::string_view line) {
    return line.size() == 2 && line[1] == ':' && UpperChar(line[0]) >= 'A' &&
           UpperChar(line[0]) <= 'B';
}

// "*name args" runs a program with its arguments as one string.
std::string ExpandShortForm(std::string_view line) {
    if (IsDriveName(line)) return "DRIVE \"" + std::string(line) + "\"";
    if (line.size() > 1 && line[0] == '*') {
        const size_t blank = line.find(' ');
        std::string command = "RUN \"" + std::string(line.substr(1, blank - 1)) + "\"";
        if (blank != std::string_view::npos) {
            command += ", \"" + std::string(line.substr(blank + 1)) + "\"";
        }
        return command;
    }
    return std::string(line);
}

// The CMM2 upper-cases what stands outside quotes before it looks at it.
std::string UpperOutsideQuotes(std::string line) {
    bool quoted = false;
    for (char& c : line) {
        if (c == '"') quoted = !quoted;
        if (!quoted) c = UpperChar(c);
    }
    return line;
}

size_t CountQuotes(const std::string& line) {
    size_t count = 0;
    for (const char c : line) count += c == '"';
    return count;
}

}  // namespace

// An empty line just brings the prompt again.
void ExecuteCommandLine(Board& board, const std::string& line) {
    const std::string_view trimmed = TrimBlanks(line);
    if (trimmed.empty()) {
        ReturnToPrompt(board);
        return;
    }
    if (board.facts.language == BoardLanguage::kShell) {
        RunShellLine(board, std::string(trimmed));
        return;
    }
    std::string command = ExpandShortForm(trimmed);
    board.basic.statement = BasicPlace{true, 0, 0};
    if (board.facts.upperNames) {
        if (CountQuotes(command) % 2 != 0) {
            FailWith(board, "Unterminated string");
            return;
        }
        command = UpperOutsideQuotes(command);
    }
    StartDirectLine(board, command);
}

}  // namespace simulator
