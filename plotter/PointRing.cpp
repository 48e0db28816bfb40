#include "plotter/PointRing.h"

#include <algorithm>

void PointRing::Add(uint32_t row, double value) {
    const size_t place = end++ % kBlock;
    if (place == 0) blocks.push_back({{}, {}, value, value});
    Block& block = blocks.back();
    block.rows[place] = row;
    block.values[place] = value;
    block.lowest = std::min(block.lowest, value);
    block.highest = std::max(block.highest, value);
    if (Size() > most) ++first;
    if (first < kBlock) return;
    blocks.pop_front();
    first -= kBlock;
    end -= kBlock;
}

size_t PointRing::WholeBlockAt(size_t i) const {
    return (first + i) % kBlock == 0 && i + kBlock <= Size() ? kBlock : 0;
}
