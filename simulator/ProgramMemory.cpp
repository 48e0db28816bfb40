#include "simulator/ProgramMemory.h"

#include <algorithm>

#include "simulator/Board.h"
#include "simulator/basic/BasicCommands.h"

namespace simulator {
namespace {

// What the firmware adds to the tokens when it tells the size.
constexpr size_t kScanCount = 16;

const std::string kNoLine;

// Files may hold anything; a program line holds text.
std::string CleanLine(std::string_view line) {
    std::string clean;
    for (const char c : line) {
        if (static_cast<unsigned char>(c) >= ' ' || c == '\t') clean += c == '\t' ? ' ' : c;
    }
    return clean;
}

// Takes the next line off `text`, with its end.
std::string_view TakeLine(std::string_view* text) {
    const size_t end = std::min(text->find_first_of("\r\n"), text->size());
    const std::string_view line = text->substr(0, end);
    const size_t endSize = text->substr(end, 2) == "\r\n" ? 2 : 1;
    text->remove_prefix(std::min(end + endSize, text->size()));
    return line;
}

}  // namespace

const char* StoreProgram(Board& board, std::string_view text) {
    ProgramMemory& program = board.program;
    program.lines.clear();
    ChargeWork(board, text.size());
    size_t size = 0;
    while (!text.empty()) {
        std::string line = CleanLine(TakeLine(&text));
        size += line.size() + 2;
        if (line.size() > kMaximumLine || size > board.facts.flash.programBytes)
            return "Not enough memory";
        program.lines.push_back(std::move(line));
    }
    if (!program.lines.empty() && program.lines.back().empty()) program.lines.pop_back();
    return nullptr;
}

const std::string& ProgramLine(const Board& board, int index) {
    const auto& lines = board.program.lines;
    if (index < 0 || static_cast<size_t>(index) >= lines.size()) return kNoLine;
    return lines[static_cast<size_t>(index)];
}

std::string JoinProgram(const Board& board, const char* lineEnd) {
    std::string text;
    for (const std::string& line : board.program.lines) text.append(line).append(lineEnd);
    return text;
}

size_t TokenisedSize(const Board& board) {
    size_t size = kScanCount;
    for (const std::string& line : board.program.lines) size += TokenisedLineSize(line);
    return size;
}

}  // namespace simulator
