#include "simulator/ProgramReceive.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "simulator/Board.h"
#include "simulator/files/FileCommands.h"

namespace simulator {

// Every byte is judged on its own: end code, line end, text, or nothing at all.

namespace {

constexpr unsigned char kCtrlC = 3;
constexpr size_t kHeldEchoLimit = 64;
constexpr int64_t kEchoHoldMs = 100;

void FlushEcho(Board& board) {
    const std::string held = std::move(board.out.held);
    board.out.held.clear();
    Echo(board, held);
}

// Characters of a line that isn't finished are held back, for 100 ms at most.
void EchoReceived(Board& board, std::string_view text) {
    if (!board.facts.receive.holdsEcho) return Echo(board, text);
    board.out.held += text;
    if (board.out.held.size() >= kHeldEchoLimit) FlushEcho(board);
}

// CR ends a line and its echo comes at once; LF behind it is nothing; LF alone comes back
// as it is on boards that hold the echo, and stays held.
void TakeLineEnd(Board& board, char c) {
    ProgramReceive& receive = board.receive;
    if (c == '\n' && receive.afterCr) return;
    receive.text += '\n';
    if (c == '\n' && board.facts.receive.holdsEcho) return EchoReceived(board, "\n");
    EchoReceived(board, "\r\n");
    if (board.facts.receive.holdsEcho) FlushEcho(board);
}

// On the CMM2 this "> " is no prompt, though it looks like one.
void Saved(Board& board) {
    ProgramReceive& receive = board.receive;
    if (!receive.fileName.empty()) {
        Put(board, "\r\n> Saved to SDcard\r\n");
    } else if (board.facts.receive.saysSaved) {
        FreshLine(board);
        Put(board, BoardFormat("Saved %zu bytes\r\n", TokenisedSize(board)));
    }
    board.prompt.loud = true;
    if (receive.runs) return RunProgram(board);
    ReturnToPrompt(board);
}

const char* StoreReceived(Board& board) {
    const ProgramReceive& receive = board.receive;
    if (!receive.fileName.empty()) {
        std::string data;
        for (const char c : receive.text) data.append(c == '\n' ? "\r" : "").append(1, c);
        const char* error = WriteFile(board.files, receive.fileName, data, BoardSeconds(board));
        if (error) return error;
    }
    return StoreProgram(board, receive.text);
}

// The text is judged at once, the flash written after that: an error comes early.
void EndReceive(Board& board, bool runs) {
    FlushEcho(board);
    board.receive.runs = runs;
    const char* error = StoreReceived(board);
    board.receive.text.clear();
    if (error) return FailWith(board, error);
    // The flash is written with the interrupts off: what is typed now is lost.
    BusyThen(board, board.facts.flash.saveMs, Saved, true);
}

// Is the key an end code of this board?
bool IsEndKey(const Board& board, unsigned char key) {
    return key != 0 && std::strchr(board.facts.receive.endKeys, key) != nullptr;
}

// Where Ctrl-C doesn't save, the text is lost, and so is the old program, which went at the start.
void TakeCtrlC(Board& board) {
    if (IsEndKey(board, kCtrlC)) return EndReceive(board, false);
    FlushEcho(board);
    board.receive.text.clear();
    ReturnToPromptLoudly(board);
}

// True while the board still receives.
bool TakeKey(Board& board, unsigned char key) {
    ProgramReceive& receive = board.receive;
    if (IsEndKey(board, key)) {
        EndReceive(board, key == kKeyF2);
        return false;
    }
    const char c = static_cast<char>(key == '\t' ? ' ' : key);
    const bool first = std::exchange(receive.atStart, false);
    if (c == '\r' || c == '\n') {
        if (!(first && c == '\n')) TakeLineEnd(board, c);
        receive.afterCr = c == '\r';
    } else if (c >= ' ' && c < 0x7f) {
        receive.text += c;
        receive.afterCr = false;
        EchoReceived(board, std::string_view(&c, 1));
    }
    if (receive.text.size() <= board.facts.flash.programBytes) return true;
    FlushEcho(board);
    receive.text.clear();
    FailWith(board, "Not enough memory");
    return false;
}

// One timer serves two ends: a held key sequence, and held echo.
void TakeKeys(Board& board, const std::string& keys) {
    for (const char key : keys) {
        if (!TakeKey(board, static_cast<unsigned char>(key))) return;
    }
    const int64_t echoMs = board.receive.lastByteAt + kEchoHoldMs - board.now;
    WakeIn(board, !board.receive.keys.held.empty() ? kEscapeHoldMs
                  : !board.out.held.empty()        ? std::max<int64_t>(0, echoMs)
                                                   : kNeverMs);
}

// ESC in a text starts a key sequence here as well.
void TakeByte(Board& board, unsigned char c) {
    board.receive.lastByteAt = board.now;
    const std::string plain(1, static_cast<char>(c));
    TakeKeys(board, board.facts.prompt.fullEditor ? DecodeKeyByte(board.receive.keys, c) : plain);
}

// A pause in the input.
void InputPauses(Board& board) {
    if (board.now - board.receive.lastByteAt >= kEchoHoldMs) FlushEcho(board);
    TakeKeys(board, DecodeKeyTimeout(board.receive.keys));
}

const BoardActivity kReceiving = {TakeByte, InputPauses, TakeCtrlC};

}  // namespace

// The program in memory is gone from now on, whatever comes.
void StartProgramReceive(Board& board) {
    board.receive = ProgramReceive();
    if (board.facts.cmm2 && !TakeProgramPath(board, &board.receive.fileName)) return;
    if (!AtStatementEnd(board))
        return Refuse(board, "AUTOSAVE takes no options in the simulated board");
    if (!board.facts.cmm2) board.program.lines.clear();
    StopProgram(board);
    StartActivity(board, kReceiving);
}

}  // namespace simulator
