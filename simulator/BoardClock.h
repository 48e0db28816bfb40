// The board's own clock. The clock chip beside it shows the same time.
#pragma once

#include <cstdint>
#include <string>

namespace simulator {
struct Board;

// 2024-01-01 00:00:00: a board without a battery begins there.
constexpr int64_t kPowerUpSeconds = 1704067200;

struct BoardClock {
    int64_t seconds = kPowerUpSeconds;  // since 1970 in civil time, at setAt
    int64_t setAt = 0;                  // ms
};

int64_t BoardSeconds(const Board& board);

// Seconds since 1970 in civil time, by a format of strftime(3).
std::string FormatSeconds(int64_t seconds, const char* format);

// The statements DATE$ = and TIME$ =, and RTC.
void RunSetDate(Board& board);
void RunSetTime(Board& board);
void RunRtc(Board& board);

}  // namespace simulator
