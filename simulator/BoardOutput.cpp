#include "simulator/BoardOutput.h"

#include <algorithm>

#include "simulator/Board.h"

namespace simulator {

// What the board sends goes through the troubles of the line and into a queue of pieces with
// their times. A driver takes from it what the line has carried by now.

namespace {

// As the firmware counts: every character from the blank on is one column, also those of an
// escape sequence that a program prints. LF alone changes nothing.
void CountColumn(BoardOutput& out, std::string_view text) {
    for (const char c : text) {
        if (c == '\r') {
            out.column = 1;
        } else if (c == '\b') {
            out.column = std::max(1, out.column - 1);
        } else if (static_cast<unsigned char>(c) >= ' ') {
            ++out.column;
        }
    }
}

// One byte through the troubles of the line; false when it is lost.
bool SurvivesLine(Board& board, char* c) {
    const BoardFaults& faults = board.setup.faults;
    if (faults.lostOutPerMille > 0 && Draw(board, 1000) < faults.lostOutPerMille) return false;
    if (faults.garbagePerMille > 0 && Draw(board, 1000) < faults.garbagePerMille) {
        *c = static_cast<char>(Draw(board, 256));
    }
    ++board.out.sent;
    if (faults.cutAfterBytes > 0 && board.out.sent > faults.cutAfterBytes) board.out.cut = true;
    return !board.out.cut;
}

// Nobody would receive it: it is dropped, not queued.
bool LineIsDead(const Board& board) {
    return board.setup.faults.silent || board.out.cut || !board.listening ||
           board.awayUntil > board.now || board.out.queued >= kOutputLimit;
}

// Into the queue, each byte with the time at which the host will have it. Bytes that follow the
// last ones without a gap join their piece.
void Transmit(Board& board, std::string_view bytes) {
    BoardOutput& out = board.out;
    if (LineIsDead(board)) return;
    std::string arriving;
    for (char c : bytes) {
        if (SurvivesLine(board, &c)) arriving += c;
    }
    if (arriving.empty()) return;
    const int64_t earliest = (board.now + board.setup.faults.delayMs) * 1000;
    const int64_t start = std::max(out.lineFreeUs, earliest);
    const int64_t size = static_cast<int64_t>(arriving.size());
    out.queued += arriving.size();
    out.lineFreeUs = start + size * out.perByteUs;
    if (!out.queue.empty()) {
        BoardOutput::Piece& last = out.queue.back();
        const int64_t lastSize = static_cast<int64_t>(last.bytes.size());
        if (last.startUs + lastSize * out.perByteUs == start) {
            last.bytes += arriving;
            return;
        }
    }
    out.queue.push_back({start, std::move(arriving)});
}

}  // namespace

void PutRaw(Board& board, std::string_view bytes) {
    Transmit(board, bytes);
}

void Put(Board& board, std::string_view text) {
    CountColumn(board.out, text);
    Transmit(board, text);
}

void Echo(Board& board, std::string_view text) {
    CountColumn(board.out, text);
    if (!board.setup.faults.noEcho) Transmit(board, text);
}

void NewLine(Board& board) {
    Put(board, "\r\n");
}

// The prompt and messages always start at column 1.
void FreshLine(Board& board) {
    if (board.out.column != 1) NewLine(board);
}

bool OutputIsFull(const Board& board) {
    return board.out.queued >= kOutputHighWater;
}

// Only whole bytes that have gone through the line by now.
std::string TakeReady(Board& board) {
    BoardOutput& out = board.out;
    const int64_t nowUs = board.now * 1000;
    std::string ready;
    while (!out.queue.empty()) {
        BoardOutput::Piece& piece = out.queue.front();
        size_t count = piece.bytes.size();
        if (out.perByteUs > 0) {
            const int64_t passed = std::max<int64_t>(0, nowUs - piece.startUs) / out.perByteUs;
            count = std::min(count, static_cast<size_t>(passed));
        } else if (piece.startUs > nowUs) {
            count = 0;
        }
        if (count == 0) break;
        ready.append(piece.bytes, 0, count);
        if (count == piece.bytes.size()) {
            out.queue.pop_front();
            continue;
        }
        piece.bytes.erase(0, count);
        piece.startUs += static_cast<int64_t>(count) * out.perByteUs;
        break;
    }
    out.queued -= ready.size();
    return ready;
}

int64_t NextReadyMs(const Board& board) {
    const BoardOutput& out = board.out;
    if (out.queue.empty()) return kNeverMs;
    return (out.queue.front().startUs + out.perByteUs + 999) / 1000;
}

}  // namespace simulator
