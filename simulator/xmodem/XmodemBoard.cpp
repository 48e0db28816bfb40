#include "simulator/xmodem/XmodemBoard.h"

#include "simulator/Board.h"
#include "simulator/files/FileCommands.h"

namespace simulator {
namespace {

// Each byte starts the silence anew, so a host that goes on sending is never answered.
void TakeNoise(Board& board, unsigned char) {
    WakeIn(board, kXmodemQuietMs);
}

void LineIsQuiet(Board& board) {
    board.xmodem.afterQuiet(board);
}

const BoardActivity kQuieting = {TakeNoise, LineIsQuiet, nullptr, false, true};

// The program as a file: the very last line end is cut in the firmware's own way.
std::string ProgramAsFile(const Board& board) {
    std::string text = JoinProgram(board, "\r\n");
    if (text.empty()) return text;
    text.resize(text.size() - 2);
    return text + board.facts.xmodem.lastLine;
}

// Without a name it is program memory, except on the CMM2.
bool TakeName(Board& board) {
    board.xmodem.path.clear();
    if (AtStatementEnd(board)) {
        return !board.facts.cmm2 || Fail(board, "Syntax");
    }
    if (!TakePath(board, &board.xmodem.path)) return false;
    if (TakeChar(board, ',')) TakeInteger(board, 0, 6);  // the CMM2's port
    return !board.basic.failed;
}

// A missing file brings an error in place of protocol bytes.
void BeginSend(Board& board) {
    if (board.xmodem.path.empty()) {
        board.xmodem.data = ProgramAsFile(board);
    } else {
        if (!FetchFile(board, board.xmodem.path, &board.xmodem.data)) return;
    }
    StartXmodemSend(board);
}

// The file is made at once: a folder that isn't there fails before the first NAK.
void BeginReceive(Board& board) {
    if (!board.xmodem.path.empty()) {
        const char* error = WriteFile(board.files, board.xmodem.path, "", BoardSeconds(board));
        if (error) return Refuse(board, error);
    }
    StartXmodemReceive(board);
}

}  // namespace

void RunXmodem(Board& board) {
    const bool sends = TakeKeyword(board, "SEND") || TakeKeyword(board, "S");
    if (!sends && !TakeKeyword(board, "RECEIVE") && !TakeKeyword(board, "R"))
        return Refuse(board, "Syntax");
    board.xmodem = XmodemBoard();
    if (!TakeName(board)) return;
    if (sends) return BeginSend(board);
    BeginReceive(board);
}

void PutByte(Board& board, unsigned char c) {
    const char byte = static_cast<char>(c);
    PutRaw(board, std::string_view(&byte, 1));
}

void PutCancel(Board& board) {
    PutRaw(board, "\x18\x18\x18");
}

void WaitForQuiet(Board& board, void (*then)(Board& board)) {
    board.xmodem.afterQuiet = then;
    StartActivity(board, kQuieting);
    WakeIn(board, kXmodemQuietMs);
}

// The prompt follows the last protocol byte at once, maybe in the same read.
void EndXmodem(Board& board) {
    board.xmodem = XmodemBoard();
    board.prompt.loud = true;
    ResumeBasic(board);
}

// A partial file stays.
void FailXmodem(Board& board, const char* message) {
    board.xmodem = XmodemBoard();
    FailWith(board, message);
}

void FailXmodemQuietly(Board& board, const char* message) {
    board.xmodem.failure = message;
    WaitForQuiet(board, [](Board& quiet) { FailXmodem(quiet, quiet.xmodem.failure); });
}

// CRC-16/XMODEM: polynomial 0x1021, start 0.
uint16_t BoardCrc16(std::string_view data) {
    unsigned crc = 0;
    for (const char c : data) {
        crc ^= static_cast<unsigned>(static_cast<unsigned char>(c)) << 8;
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc & 0x8000) ? (crc << 1) ^ 0x1021 : crc << 1;
        }
    }
    return static_cast<uint16_t>(crc & 0xffff);
}

unsigned char BoardSum8(std::string_view data) {
    unsigned sum = 0;
    for (const char c : data) sum += static_cast<unsigned char>(c);
    return static_cast<unsigned char>(sum & 0xff);
}

}  // namespace simulator
