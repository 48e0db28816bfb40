#include "simulator/LineReader.h"

#include "simulator/Board.h"

namespace simulator {
namespace {

// The LF of a CR LF is a second answer for older firmware, and skipped by the newer.
void TakeTyped(Board& board, unsigned char c) {
    LineReader& reader = board.reader;
    const bool skipped = c == '\n' && reader.afterCr && board.facts.prompt.inputSkipsLf;
    reader.afterCr = c == '\r';
    if (skipped) return;
    if (c == '\r' || c == '\n') {
        Echo(board, "\r\n");
        const std::string line = reader.line;
        reader.line.clear();
        reader.done(board, line);
        return;
    }
    if (c == '\b' && !reader.line.empty()) {
        reader.line.pop_back();
        Echo(board, "\b \b");
    } else if (c >= ' ' && c < 0x7f && reader.line.size() < kMaximumTyped) {
        reader.line += static_cast<char>(c);
        Echo(board, std::string(1, static_cast<char>(c)));
    }
}

const BoardActivity kReading = {TakeTyped, nullptr, ReturnToPromptLoudly};

}  // namespace

void ReadLine(Board& board, void (*done)(Board& board, const std::string& line)) {
    board.reader.line.clear();
    board.reader.done = done;
    StartActivity(board, kReading);
}

}  // namespace simulator
