// Whether a text stands anywhere in this process. Memory that was given back is looked at
// as well: a sanitizer keeps it for a while as it was.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <string>

#include "encoding/SecretBytes.h"

// The characters lie one higher here, so that neither a test's source nor this search is found.
inline SecretBytes Undisguised(const char* disguised) {
    SecretBytes text;
    for (; *disguised; ++disguised) text.push_back(static_cast<uint8_t>(*disguised - 1));
    return text;
}

// As one byte a character, or two, at `at`, which has `left` bytes behind it.
inline bool StandsAt(const char* at, size_t left, const std::string& disguised, size_t width) {
    if (left < disguised.size() * width) return false;
    for (size_t i = 0; i < disguised.size(); ++i) {
        if (at[i * width] + 1 != disguised[i] || (width == 2 && at[i * 2 + 1] != 0)) return false;
    }
    return true;
}

inline bool MemoryHolds(const std::string& disguised) {
    static char block[1 << 20];
    constexpr unsigned long long kLargestMapping = 1ULL << 30;  // shadow memory is larger
    const int memory = open("/proc/self/mem", O_RDONLY);
    std::ifstream maps("/proc/self/maps");
    bool found = false;
    for (std::string line; std::getline(maps, line);) {
        unsigned long long at = 0, end = 0;
        char rights[3] = "";
        sscanf(line.c_str(), "%llx-%llx %2s", &at, &end, rights);
        if (strcmp(rights, "rw") != 0 || end - at > kLargestMapping) continue;
        for (ssize_t got; at < end && (got = pread(memory, block, sizeof block, at)) > 0;) {
            const char* const stop = block + got;
            for (const char* p = block;
                 (p = static_cast<const char*>(memchr(p, disguised[0] - 1, size_t(stop - p))));
                 ++p) {
                const auto left = static_cast<size_t>(stop - p);
                found |= StandsAt(p, left, disguised, 1) || StandsAt(p, left, disguised, 2);
            }
            at += static_cast<size_t>(got) > 4096 ? size_t(got) - 1024 : size_t(got);
        }
    }
    close(memory);
    return found;
}
