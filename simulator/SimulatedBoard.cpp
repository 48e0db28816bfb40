#include "simulator/SimulatedBoard.h"

#include <algorithm>

#include "simulator/Board.h"

namespace simulator {

// Time moves from one due event to the next, so it makes no difference in what steps a driver
// lets it pass.

namespace {

const BoardActivity kOff = {nullptr, nullptr, nullptr, true};

// A storm outlasts whatever the board does, but waits for a host that takes nothing.
void SendStorm(Board& board) {
    const BoardFaults& faults = board.setup.faults;
    if (!OutputIsFull(board)) PutRaw(board, faults.storm);
    board.nextStorm = board.now + std::max(faults.stormIntervalMs, 1);
}

// Everything that is due by `now`, in the order of its times.
void RunUntil(Board& board, int64_t now) {
    for (int step = 0; step < kMaximumStepsPerAdvance; ++step) {
        PumpInput(board);
        const int64_t due = std::min(board.wakeAt, board.nextStorm);
        if (due > now) break;
        board.now = std::max(board.now, due);
        if (board.nextStorm <= board.wakeAt) {
            SendStorm(board);
        } else {
            board.activity->time(board);
        }
    }
    board.now = std::max(board.now, now);
}

}  // namespace

Board::Board(const BoardFacts& boardFacts, const BoardSetup& boardSetup)
    : facts(boardFacts), setup(boardSetup), activity(&kOff) {
    random = static_cast<uint64_t>(setup.faults.seed) * 0x9e3779b97f4a7c15u | 1;
    prompt.pin = facts.prompt.pinDelayMs < 0 ? 0 : setup.pin;
    files.fat = facts.flash.slotMs == 0;
    files.sdCard = setup.sdCard;
}

// Marsaglia's xorshift: small, and the same everywhere.
int Draw(Board& board, int below) {
    uint64_t& x = board.random;
    x ^= x << 13;
    x ^= x >> 7;
    x ^= x << 17;
    return static_cast<int>((x >> 11) % static_cast<uint64_t>(std::max(below, 1)));
}

SimulatedBoard::SimulatedBoard(const BoardFacts& facts, const BoardSetup& setup)
    : board(std::make_unique<Board>(facts, setup)) {}

SimulatedBoard::~SimulatedBoard() = default;

// The clock and the storm count from here.
void SimulatedBoard::PowerUp(int64_t nowMs) {
    if (board->powered) return;
    board->powered = true;
    board->now = board->clock.setAt = nowMs;
    if (!board->setup.faults.storm.empty()) board->nextStorm = board->now;
    PrintSignOn(*board);
    ReturnToPrompt(*board);
}

// Byte by byte with all that is due between: a command runs before the next one is read.
void SimulatedBoard::Receive(std::string_view bytes, int64_t nowMs) {
    Advance(nowMs);
    const bool telnet = OutputSegment() > 0;
    const std::string plain = telnet ? DecodeTelnet(board->telnet, bytes) : std::string(bytes);
    for (const char c : plain) {
        if (!LinkIsUp()) return;
        AcceptByte(*board, static_cast<unsigned char>(c));
        RunUntil(*board, board->now);
    }
}

// A board without flow control takes everything, and its ring loses the oldest.
size_t SimulatedBoard::InputRoom() const {
    if (board->facts.line.dropsOldest) return std::numeric_limits<size_t>::max();
    const size_t waiting = board->ring.size();
    return board->facts.line.ring - std::min(waiting, board->facts.line.ring);
}

void SimulatedBoard::Advance(int64_t nowMs) {
    if (board->powered) RunUntil(*board, nowMs);
}

std::string SimulatedBoard::TakeOutput() {
    const std::string ready = TakeReady(*board);
    return OutputSegment() > 0 ? EncodeTelnet(board->telnet, ready) : ready;
}

size_t SimulatedBoard::OutputSegment() const {
    return board->setup.onUsb ? 0 : board->facts.line.telnetSegment;
}

int64_t SimulatedBoard::NextWake() const {
    return std::min({board->wakeAt, board->nextStorm, NextReadyMs(*board)});
}

bool SimulatedBoard::LinkIsUp() const {
    return !board->out.cut && board->awayUntil <= board->now;
}

void SimulatedBoard::SetListening(bool listening) {
    if (listening && !board->listening) StartTelnet(board->telnet);
    board->listening = listening;
}

// The folders on the way are made as they are missing.
bool SimulatedBoard::AddFile(std::string_view path, std::string_view data, int64_t stamp) {
    std::string whole;
    if (!ResolvePath(board->files, path, &whole)) return false;
    for (size_t slash = whole.find('/', 3); slash != std::string::npos;
         slash = whole.find('/', slash + 1)) {
        const std::string folder = whole.substr(0, slash);
        if (!FolderExists(board->files, folder) && MakeFolder(board->files, folder)) return false;
    }
    return WriteFile(board->files, whole, data, stamp) == nullptr;
}

bool SimulatedBoard::ReadFile(std::string_view path, std::string* data) const {
    std::string whole;
    if (!ResolvePath(board->files, path, &whole)) return false;
    const StoredFile* file = FindFile(board->files, whole);
    if (!file || file->isFolder) return false;
    *data = file->data;
    return true;
}

std::string SimulatedBoard::ProgramText() const {
    return JoinProgram(*board, "\n");
}

}  // namespace simulator
