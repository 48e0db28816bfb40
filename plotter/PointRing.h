// The newest points of one series.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>

constexpr size_t kRingPoints = 1000000;

// Points lie in blocks that know their lowest and highest value, so that drawing passes over what
// one column of pixels shows. Memory grows with the points: 12 bytes for each.
class PointRing {
  public:
    static constexpr size_t kBlock = 64;

    explicit PointRing(size_t mostPoints = kRingPoints) : most(mostPoints) {}

    // `row` is above that of the point before, modulo 2^32. The oldest point goes when the ring
    // is full.
    void Add(uint32_t row, double value);

    size_t Size() const { return end - first; }
    // Of the points, the oldest is 0.
    uint32_t Row(size_t i) const { return BlockOf(i).rows[(first + i) % kBlock]; }
    double Value(size_t i) const { return BlockOf(i).values[(first + i) % kBlock]; }
    // How many points from `i` on are a whole block: kBlock, or 0.
    size_t WholeBlockAt(size_t i) const;
    // Of the block that point `i` lies in, whole or not.
    double Lowest(size_t i) const { return BlockOf(i).lowest; }
    double Highest(size_t i) const { return BlockOf(i).highest; }

  private:
    struct Block {
        std::array<uint32_t, kBlock> rows;
        std::array<double, kBlock> values;
        double lowest, highest;
    };

    const Block& BlockOf(size_t i) const { return blocks[(first + i) / kBlock]; }

    size_t most;
    std::deque<Block> blocks;
    size_t first = 0;  // of the points in the blocks, those that have gone
    size_t end = 0;    // all points in the blocks
};
