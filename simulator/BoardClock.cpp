#include "simulator/BoardClock.h"

#include <ctime>
#include <vector>

#include "simulator/Board.h"

// Dates are reckoned in the Gregorian calendar with no zone and no leap seconds, as UTC.

namespace simulator {
namespace {

// The chip keeps its own time: it is as far ahead as it was, less the step of the board's clock.
void SetBoardSeconds(Board& board, int64_t seconds) {
    board.clock.chipAhead += BoardSeconds(board) - seconds;
    board.clock.seconds = seconds;
    board.clock.setAt = board.now;
}

std::tm CivilNow(const Board& board) {
    const time_t now = static_cast<time_t>(BoardSeconds(board));
    std::tm civil = {};
    gmtime_r(&now, &civil);
    return civil;
}

// At most three numbers between any of `separators`; false if one is none.
bool ReadNumbers(std::string text, std::string_view separators, std::vector<int>* numbers) {
    for (char& c : text) {
        if (separators.find(c) != std::string_view::npos) c = ',';
    }
    for (const std::string& field : SplitFields(text, ',', 3)) {
        int64_t number = 0;
        if (!ReadInteger(field, &number) || number < 0 || number > 9999) return false;
        numbers->push_back(static_cast<int>(number));
    }
    return true;
}

// Day, month, year; two-digit years are of this century, a large first one is the year.
bool ReadDate(Board& board, const std::string& text, std::tm* civil) {
    std::vector<int> parts;
    if (!ReadNumbers(text, "-/", &parts) || parts.size() != 3) return Fail(board, "Invalid date");
    if (parts[0] > 31) std::swap(parts[0], parts[2]);
    if (parts[2] < 100) parts[2] += 2000;
    if (parts[2] < 1970 || parts[2] > 2999) return Fail(board, "Year is not valid");
    if (parts[1] < 1 || parts[1] > 12) return Fail(board, "Month is not valid");
    civil->tm_mday = parts[0];
    civil->tm_mon = parts[1] - 1;
    civil->tm_year = parts[2] - 1900;
    std::tm same = *civil;
    timegm(&same);  // a day that isn't there becomes another one
    return same.tm_mday == parts[0] || Fail(board, "Day is invalid");
}

// Minutes and seconds may be left out.
bool ReadTime(Board& board, const std::string& text, std::tm* civil) {
    std::vector<int> parts;
    const bool read = ReadNumbers(text, ":", &parts);
    parts.resize(3, 0);
    if (!read || parts[0] > 23 || parts[1] > 59 || parts[2] > 59) {
        return Fail(board, "Invalid time");
    }
    civil->tm_hour = parts[0];
    civil->tm_min = parts[1];
    civil->tm_sec = parts[2];
    return true;
}

// DATE$ = keeps the time of day, TIME$ = keeps the date.
void SetClock(Board& board, bool (*read)(Board& board, const std::string& text, std::tm* civil)) {
    std::tm civil = CivilNow(board);
    if (!Expect(board, '=')) return;
    const std::string text = TakeText(board);
    if (!board.basic.failed && read(board, text, &civil)) SetBoardSeconds(board, timegm(&civil));
}

// RTC SETTIME's year, month, day, hour, minute and second.
bool TakeChipTime(Board& board, std::tm* civil) {
    int n[6] = {};
    for (int i = 0; i < 6; ++i) {
        if (i > 0 && !TakeChar(board, ',')) return Fail(board, "Argument count");
        n[i] = TakeInteger(board, 0, 9999);
        if (board.basic.failed) return false;
    }
    return ReadDate(board, BoardFormat("%d-%d-%d", n[2], n[1], n[0]), civil) &&
           ReadTime(board, BoardFormat("%d:%d:%d", n[3], n[4], n[5]), civil);
}

}  // namespace

// Runs with board time, in whole seconds since it was set.
int64_t BoardSeconds(const Board& board) {
    return board.clock.seconds + (board.now - board.clock.setAt) / 1000;
}

std::string FormatSeconds(int64_t seconds, const char* format) {
    const time_t moment = static_cast<time_t>(seconds);
    std::tm civil = {};
    gmtime_r(&moment, &civil);
    char text[64];
    return std::string(text, std::strftime(text, sizeof text, format, &civil));
}

std::string BoardDate(const Board& board) {
    return FormatSeconds(BoardSeconds(board), "%d-%m-%Y");
}

std::string BoardTime(const Board& board) {
    return FormatSeconds(BoardSeconds(board), "%H:%M:%S");
}

void RunSetDate(Board& board) {
    SetClock(board, ReadDate);
}

void RunSetTime(Board& board) {
    SetClock(board, ReadTime);
}

// RTC SETTIME sets the chip alone; RTC GETTIME takes its time over.
void RunRtc(Board& board) {
    std::tm civil = {};
    const bool sets = TakeKeyword(board, "SETTIME");
    if (!sets && !TakeKeyword(board, "GETTIME")) return Refuse(board, "Syntax");
    if (!sets) return SetBoardSeconds(board, BoardSeconds(board) + board.clock.chipAhead);
    if (!TakeChipTime(board, &civil)) return;
    board.clock.chipAhead = timegm(&civil) - BoardSeconds(board);
}

}  // namespace simulator
