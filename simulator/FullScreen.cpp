#include "simulator/FullScreen.h"

#include "simulator/Board.h"
#include "simulator/files/FileListing.h"

namespace simulator {

namespace {

constexpr char kEscapeKey = 27;
constexpr char kClear[] = "\x1b[2J\x1b[H";

// The sequences of a full screen leave the cursor in its corner.
void ClearScreen(Board& board) {
    PutRaw(board, kClear);
    board.out.column = 1;
}

void LeaveScreen(Board& board) {
    ClearScreen(board);
    ReturnToPromptLoudly(board);
}

void TakeKeys(Board& board, const std::string& keys) {
    for (const char key : keys) {
        const auto code = static_cast<unsigned char>(key);
        const bool runs = board.fullScreen.canRun && code == kKeyF2;
        if (key != kEscapeKey && code != kKeyF1 && !runs) continue;
        if (!runs) {
            LeaveScreen(board);
            return;
        }
        ClearScreen(board);
        RunProgram(board);
        return;
    }
}

// ESC counts alone, so it has to be told from the start of a key.
void TakeByte(Board& board, unsigned char c) {
    std::string keys;
    DecodeKeyByte(board.fullScreen.keys, c, &keys);
    if (board.fullScreen.keys.held.empty()) {
        WakeNever(board);
    } else {
        WakeIn(board, kEscapeHoldMs);
    }
    TakeKeys(board, keys);
}

void HoldIsOver(Board& board) {
    std::string keys;
    WakeNever(board);
    DecodeKeyTimeout(board.fullScreen.keys, &keys);
    TakeKeys(board, keys);
}

const BoardActivity kFullScreen = {TakeByte, HoldIsOver, LeaveScreen};

// What doesn't fit on the screen is cut, there is no scrolling.
void Show(Board& board, const std::vector<std::string>& lines, const char* footer) {
    const size_t width = static_cast<size_t>(board.width) - 1;
    const size_t rows = static_cast<size_t>(board.height) - 2;
    PutRaw(board, kClear);
    for (size_t i = 0; i < lines.size() && i < rows; ++i) {
        PutRaw(board, lines[i].substr(0, width) + "\r\n");
    }
    PutRaw(board, BoardFormat("\x1b[%d;1H\x1b[7m%s\x1b[m", board.height, footer));
    board.fullScreen.keys.held.clear();
    StartActivity(board, kFullScreen);
}

}  // namespace

void RunEdit(Board& board) {
    std::vector<std::string> lines;
    for (const std::string& line : board.program.lines) lines.push_back(RecasedLine(line));
    StopProgram(board);
    board.fullScreen.canRun = true;
    Show(board, lines, "For viewing only: ESC leaves, F2 runs");
}

void RunFileManager(Board& board) {
    std::vector<std::string> lines = {board.files.folder};
    for (const StoredFile* file : ListFolder(board.files, board.files.folder, "*")) {
        lines.push_back(ListingLine(board.facts.listing.layout, *file));
    }
    StopProgram(board);
    board.fullScreen.canRun = false;
    Show(board, lines, "For viewing only: ESC leaves");
}

}  // namespace simulator
