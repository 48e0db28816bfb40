// When the lines came that gave points.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>

// Rows count the lines that gave points. Series hold the number of a row in 32 bits; those that
// are held at one time lie closer together than that.
class RowTimes {
  public:
    // `time` in seconds; gives the number of the new row.
    uint32_t Add(double time) {
        times.push_back(times.empty() ? time : std::max(time, times.back()));
        return NewestRow();
    }
    // Rows before this one are no longer asked for.
    void DropBefore(uint32_t row) {
        const uint32_t count = row - static_cast<uint32_t>(first);
        times.erase(times.begin(), times.begin() + count);
        first += count;
    }

    size_t Size() const { return times.size(); }
    uint64_t Total() const { return first + times.size(); }  // with those that were dropped
    uint32_t NewestRow() const { return static_cast<uint32_t>(Total() - 1); }
    double Oldest() const { return times.empty() ? 0 : times.front(); }
    double Newest() const { return times.empty() ? 0 : times.back(); }
    double Time(uint32_t row) const { return times[row - static_cast<uint32_t>(first)]; }
    // The rows up to this one, from the first line on.
    double Count(uint32_t row) const {
        return static_cast<double>(first + (row - static_cast<uint32_t>(first)) + 1);
    }

  private:
    uint64_t first = 0;  // the oldest row
    std::deque<double> times;
};

// What stands along x: the time of a row, or its count.
struct XAxisRule {
    const RowTimes* rows;
    bool byCount;
    double operator()(uint32_t row) const { return byCount ? rows->Count(row) : rows->Time(row); }
};
