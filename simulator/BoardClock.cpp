#include "simulator/BoardClock.h"

#include <vector>

#include "simulator/Board.h"

namespace simulator {

// Dates are reckoned in the Gregorian calendar with no zone and no leap seconds.

namespace {

constexpr int64_t kDaySeconds = 86400;

int DaysInMonth(int year, int month) {
    constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : kDays[month - 1];
}

// Days since 1970-01-01 in the Gregorian calendar, counted in years that start in March.
int64_t DaysFromCivil(int64_t year, int64_t month, int64_t day) {
    year -= month <= 2;
    const int64_t era = year / 400;
    const int64_t yearOfEra = year - era * 400;
    const int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

// The chip keeps its own time: it is as far ahead as it was, less the step of the board's clock.
void SetBoardSeconds(Board& board, int64_t seconds) {
    board.clock.chipAhead += BoardSeconds(board) - seconds;
    board.clock.seconds = seconds;
    board.clock.setAt = board.now;
}

// Numbers between any of `separators`; false if one is none.
bool ReadNumbers(std::string text, std::string_view separators, std::vector<int64_t>* numbers) {
    for (char& c : text) {
        if (separators.find(c) != std::string_view::npos) c = ',';
    }
    for (const std::string& field : SplitFields(text, ',', 8)) {
        int64_t number = 0;
        if (!ReadInteger(field, &number)) return false;
        numbers->push_back(number);
    }
    return true;
}

// Day, month, year; two-digit years are of this century, a large first one is the year.
bool ReadDate(Board& board, const std::string& text, CivilTime* time) {
    std::vector<int64_t> parts;
    if (!ReadNumbers(text, "-/", &parts) || parts.size() != 3) return Fail(board, "Invalid date");
    if (parts[0] > 31) std::swap(parts[0], parts[2]);
    if (parts[2] >= 0 && parts[2] < 100) parts[2] += 2000;
    if (parts[2] < 1970 || parts[2] > 2999) return Fail(board, "Year is not valid");
    if (parts[1] < 1 || parts[1] > 12) return Fail(board, "Month is not valid");
    const int year = static_cast<int>(parts[2]), month = static_cast<int>(parts[1]);
    if (parts[0] < 1 || parts[0] > DaysInMonth(year, month)) return Fail(board, "Day is invalid");
    time->year = year;
    time->month = month;
    time->day = static_cast<int>(parts[0]);
    return true;
}

// Minutes and seconds may be left out.
bool ReadTime(Board& board, const std::string& text, CivilTime* time) {
    std::vector<int64_t> parts;
    const bool read = ReadNumbers(text, ":", &parts) && parts.size() <= 3;
    if (read) parts.resize(3, 0);
    if (!read || parts[0] < 0 || parts[0] > 23 || parts[1] < 0 || parts[1] > 59 || parts[2] < 0 ||
        parts[2] > 59) {
        return Fail(board, "Invalid time");
    }
    time->hour = static_cast<int>(parts[0]);
    time->minute = static_cast<int>(parts[1]);
    time->second = static_cast<int>(parts[2]);
    return true;
}

// The cursor stands behind DATE$ or TIME$.
bool TakeAssigned(Board& board, std::string* text) {
    if (!Expect(board, '=')) return false;
    *text = TakeText(board);
    return !board.basic.failed;
}

// RTC SETTIME's six numbers, or one text "DD/MM/YY HH:MM:SS".
bool TakeChipTime(Board& board, CivilTime* time) {
    if (PeekChar(board) == '"') {
        const std::vector<std::string> parts = SplitFields(TakeText(board), ' ', 2);
        if (parts.size() != 2) return Fail(board, "Syntax");
        return ReadDate(board, parts[0], time) && ReadTime(board, parts[1], time);
    }
    int numbers[6] = {};
    for (int i = 0; i < 6; ++i) {
        if (i > 0 && !TakeChar(board, ',')) return Fail(board, "Argument count");
        numbers[i] = TakeInteger(board, 0, 9999);
        if (board.basic.failed) return false;
    }
    return ReadDate(board, BoardFormat("%d-%d-%d", numbers[2], numbers[1], numbers[0]), time) &&
           ReadTime(board, BoardFormat("%d:%d:%d", numbers[3], numbers[4], numbers[5]), time);
}

}  // namespace

// Runs with board time, in whole seconds since it was set.
int64_t BoardSeconds(const Board& board) {
    return board.clock.seconds + (board.now - board.clock.setAt) / 1000;
}

// The way back: an era is 400 years of 146,097 days, and years begin in March, so that the leap
// day is a year's last.
CivilTime CivilFromSeconds(int64_t seconds) {
    const int64_t shifted = seconds / kDaySeconds + 719468;
    const int64_t rest = seconds % kDaySeconds;
    const int64_t era = shifted / 146097;
    const int64_t dayOfEra = shifted % 146097;
    const int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    const int64_t month = marchMonth + (marchMonth < 10 ? 3 : -9);
    const int64_t year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
    const int64_t day = dayOfYear - (153 * marchMonth + 2) / 5 + 1;
    return {static_cast<int>(year),
            static_cast<int>(month),
            static_cast<int>(day),
            static_cast<int>(rest / 3600),
            static_cast<int>(rest / 60 % 60),
            static_cast<int>(rest % 60)};
}

int64_t SecondsFromCivil(const CivilTime& time) {
    return DaysFromCivil(time.year, time.month, time.day) * kDaySeconds + time.hour * 3600 +
           time.minute * 60 + time.second;
}

std::string BoardDate(const Board& board) {
    const CivilTime time = CivilFromSeconds(BoardSeconds(board));
    return BoardFormat("%02d-%02d-%04d", time.day, time.month, time.year);
}

std::string BoardTime(const Board& board) {
    const CivilTime time = CivilFromSeconds(BoardSeconds(board));
    return BoardFormat("%02d:%02d:%02d", time.hour, time.minute, time.second);
}

// DATE$ = keeps the time of day, TIME$ = keeps the date.
void RunSetDate(Board& board) {
    std::string text;
    CivilTime time = CivilFromSeconds(BoardSeconds(board));
    if (TakeAssigned(board, &text) && ReadDate(board, text, &time)) {
        SetBoardSeconds(board, SecondsFromCivil(time));
    }
}

void RunSetTime(Board& board) {
    std::string text;
    CivilTime time = CivilFromSeconds(BoardSeconds(board));
    if (TakeAssigned(board, &text) && ReadTime(board, text, &time)) {
        SetBoardSeconds(board, SecondsFromCivil(time));
    }
}

// RTC SETTIME sets the chip alone; RTC GETTIME takes its time over.
void RunRtc(Board& board) {
    const bool sets = TakeKeyword(board, "SETTIME");
    if (!sets && !TakeKeyword(board, "GETTIME")) {
        Fail(board, "Syntax");
        return;
    }
    CivilTime time = {};
    if (sets && !TakeChipTime(board, &time)) return;
    if (!board.setup.i2c) {
        Fail(board, "SYSTEM I2C not configured");
    } else if (!board.setup.clockChip) {
        Fail(board, "RTC not responding");
    } else if (sets) {
        board.clock.chipAhead = SecondsFromCivil(time) - BoardSeconds(board);
    } else {
        SetBoardSeconds(board, BoardSeconds(board) + board.clock.chipAhead);
    }
}

}  // namespace simulator
