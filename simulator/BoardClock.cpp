#include "simulator/BoardClock.h"

#include <array>
#include <cstdio>
#include <ctime>

#include "simulator/Board.h"

// Dates are reckoned in the Gregorian calendar with no zone and no leap seconds, as UTC.

namespace simulator {
namespace {

using Moment = std::array<int, 6>;  // year, month, day, hour, minute, second

std::tm Civil(int64_t seconds) {
    const time_t moment = static_cast<time_t>(seconds);
    std::tm civil = {};
    gmtime_r(&moment, &civil);
    return civil;
}

Moment MomentOf(int64_t seconds) {
    const std::tm c = Civil(seconds);
    return {c.tm_year + 1900, c.tm_mon + 1, c.tm_mday, c.tm_hour, c.tm_min, c.tm_sec};
}

// Two-digit years are of this century. A moment that the calendar lacks comes back from there as
// another one.
void SetClock(Board& board, Moment typed) {
    if (typed[0] < 100) typed[0] += 2000;
    std::tm civil = {};
    civil.tm_year = typed[0] - 1900;
    civil.tm_mon = typed[1] - 1;
    civil.tm_mday = typed[2];
    civil.tm_hour = typed[3];
    civil.tm_min = typed[4];
    civil.tm_sec = typed[5];
    const int64_t seconds = timegm(&civil);
    if (MomentOf(seconds) != typed) Fail(board, "Invalid date or time");
    if (!board.basic.failed) board.clock = {seconds, board.now};
}

// The text behind "=".
std::string TakeSetting(Board& board) {
    return Expect(board, '=') ? TakeText(board) : std::string();
}

}  // namespace

// Runs with board time, in whole seconds since it was set.
int64_t BoardSeconds(const Board& board) {
    return board.clock.seconds + (board.now - board.clock.setAt) / 1000;
}

std::string FormatSeconds(int64_t seconds, const char* format) {
    const std::tm civil = Civil(seconds);
    char text[64];
    return std::string(text, std::strftime(text, sizeof text, format, &civil));
}

// Day, month, year; the time of day stays. Whatever stands behind them is a fault.
void RunSetDate(Board& board) {
    Moment m = MomentOf(BoardSeconds(board));
    char rest = 0;
    const std::string text = TakeSetting(board);
    const int fields =
        std::sscanf(text.c_str(), "%2d%*1[-/]%2d%*1[-/]%4d%c", &m[2], &m[1], &m[0], &rest);
    SetClock(board, fields == 3 ? m : Moment());
}

// Minutes and seconds may be left out; the date stays.
void RunSetTime(Board& board) {
    Moment m = MomentOf(BoardSeconds(board));
    m[4] = m[5] = 0;
    char rest = 0;
    const std::string text = TakeSetting(board);
    const int fields = std::sscanf(text.c_str(), "%2d:%2d:%2d%c", &m[3], &m[4], &m[5], &rest);
    SetClock(board, fields >= 1 && fields <= 3 ? m : Moment());
}

// RTC SETTIME sets the moment by its six numbers. GETTIME has nothing to do, for chip and board
// show the same time.
void RunRtc(Board& board) {
    if (TakeKeyword(board, "GETTIME")) return;
    if (!TakeKeyword(board, "SETTIME")) return Refuse(board, "Syntax");
    Moment m = {};
    for (int& number : m) {
        if (&number != &m[0] && !TakeChar(board, ',')) Fail(board, "Argument count");
        number = TakeInteger(board, 0, 9999);
    }
    SetClock(board, m);
}

}  // namespace simulator
