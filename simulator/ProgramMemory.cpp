#include "simulator/ProgramMemory.h"

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
        if (c == '\t') {
            clean += ' ';
        } else if (static_cast<unsigned char>(c) >= ' ') {
            clean += c;
        }
    }
    return clean;
}

// Takes the next line off `text`, with its end.
std::string_view TakeLine(std::string_view* text) {
    const size_t end = text->find_first_of("\r\n");
    const std::string_view line = text->substr(0, end);
    if (end == std::string_view::npos) {
        *text = {};
        return line;
    }
    const bool both = (*text)[end] == '\r' && end + 1 < text->size() && (*text)[end + 1] == '\n';
    text->remove_prefix(end + (both ? 2 : 1));
    return line;
}

}  // namespace

const char* StoreProgram(Board& board, std::string_view text) {
    ProgramMemory& program = board.program;
    ClearProgram(board);
    ChargeWork(board, text.size());
    size_t size = 0;
    while (!text.empty()) {
        std::string line = CleanLine(TakeLine(&text));
        size += line.size() + 2;
        if (line.size() > kMaximumLine || size > board.facts.flash.programBytes) {
            BuildLabels(board);
            return "Not enough memory";
        }
        program.lines.push_back(std::move(line));
    }
    if (!program.lines.empty() && program.lines.back().empty()) program.lines.pop_back();
    BuildLabels(board);
    return nullptr;
}

void ClearProgram(Board& board) {
    board.program.lines.clear();
    board.basic.labels.clear();
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
