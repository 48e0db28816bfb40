#include "bench/Corpora.h"

#include <cstdint>
#include <vector>

namespace {

constexpr int kColumns = 80;
constexpr int kRows = 50;
constexpr size_t kPoolSize = 1 << 16;

// A 64-bit linear congruential generator (Knuth, MMIX).
struct Lcg {
    uint64_t state;

    size_t Next(size_t n) {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return (state >> 33) % n;
    }
};

// Printable characters, about one blank in six.
std::string TextPool(Lcg* lcg) {
    std::string printable;
    for (char c = '!'; c <= '~'; ++c) printable += c;
    printable += std::string(18, ' ');
    std::string pool;
    for (size_t i = 0; i < kPoolSize; ++i) pool += printable[lcg->Next(printable.size())];
    return pool;
}

std::string Piece(const std::string& pool, Lcg* lcg, size_t count) {
    return pool.substr(lcg->Next(pool.size() - count), count);
}

std::string ColourLine(const std::string& pool, Lcg* lcg) {
    static const char* const kCodes[] = {"0",  "1",  "7",  "30", "31", "32", "33", "34", "35", "36",
                                         "37", "40", "41", "42", "43", "44", "45", "46", "47"};
    std::string line;
    for (size_t left = kColumns; left > 0;) {
        const size_t count = std::min(left, 2 + lcg->Next(5));
        line += std::string("\x1b[") + kCodes[lcg->Next(std::size(kCodes))] + "m";
        line += Piece(pool, lcg, count);
        left -= count;
    }
    return line + "\x1b[0m\r\n";
}

std::string CursorScreen(const std::string& pool, Lcg* lcg) {
    std::string screen;
    for (int row = 1; row <= kRows; ++row) {
        const size_t column = 1 + lcg->Next(20);
        screen += "\x1b[" + std::to_string(row) + ";" + std::to_string(column) + "H";
        screen += Piece(pool, lcg, 60 + lcg->Next(21)) + "\x1b[K";
    }
    return screen;
}

}  // namespace

std::string AsciiCorpus(size_t size) {
    Lcg lcg = {1};
    const std::string pool = TextPool(&lcg);
    std::string corpus;
    while (corpus.size() < size) corpus += Piece(pool, &lcg, kColumns) + "\r\n";
    return corpus;
}

std::string ColourCorpus(size_t size) {
    Lcg lcg = {2};
    const std::string pool = TextPool(&lcg);
    std::string corpus;
    while (corpus.size() < size) corpus += ColourLine(pool, &lcg);
    return corpus;
}

std::string CursorCorpus(size_t size) {
    Lcg lcg = {3};
    const std::string pool = TextPool(&lcg);
    std::string corpus;
    while (corpus.size() < size) corpus += CursorScreen(pool, &lcg);
    return corpus;
}
