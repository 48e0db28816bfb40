// The board's way out: column count, and the troubles of the line.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace simulator {
struct Board;

// Bytes that wait for a host. Beyond the first bound a running program stands still, as
// it does on a real line; beyond the second what comes is lost.
constexpr size_t kOutputHighWater = 64 * 1024;
constexpr size_t kOutputLimit = 1024 * 1024;

struct BoardOutput {
    struct Piece {
        int64_t readyAt;  // ms
        std::string bytes;
    };
    std::deque<Piece> queue;
    size_t queued = 0;
    int64_t sent = 0;  // bytes since power-up, for the cut
    bool cut = false;
    int column = 1;    // of the next character, as the firmware counts
    std::string held;  // echo that isn't flushed yet
};

// Text: counts the column.
void Put(Board& board, std::string_view text);

// What comes back for a typed character; absent under the fault noEcho.
void Echo(Board& board, std::string_view text);

// Control sequences of the firmware and protocol bytes: the column stays.
void PutRaw(Board& board, std::string_view bytes);

// CR LF, and the same only when the column isn't 1.
void NewLine(Board& board);
void FreshLine(Board& board);

// No room until the host has taken something: who would print looks again a little later.
constexpr int64_t kFullOutputWaitMs = 5;
bool OutputIsFull(const Board& board);

// For the driver: what has arrived by board.now, and when the next byte will have.
std::string TakeReady(Board& board);
int64_t NextReadyMs(const Board& board);

}  // namespace simulator
