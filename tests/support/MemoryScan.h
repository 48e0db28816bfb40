// Whether a text stands anywhere in this process. Memory that was given back is looked at
// as well: a sanitizer keeps it for a while as it was.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <fstream>

#include "encoding/SecretBytes.h"

// The characters lie one higher here, so that neither a test's source nor this search is found.
inline SecretBytes Undisguised(const char* disguised) {
    SecretBytes text;
    for (; *disguised; ++disguised) text.push_back(static_cast<uint8_t>(*disguised - 1));
    return text;
}

inline bool BlockHolds(const char* at, const char* end, const std::string& disguised) {
    const auto alike = [](char hidden, char plain) { return plain == char(hidden - 1); };
    for (; (at = static_cast<const char*>(memchr(at, disguised[0] - 1, size_t(end - at)))); ++at) {
        if (size_t(end - at) >= disguised.size() &&
            std::equal(disguised.begin(), disguised.end(), at, alike))
            return true;
    }
    return false;
}

// As one byte a character, or two.
inline bool MemoryHolds(const std::string& disguised) {
    static char block[1 << 20];
    constexpr unsigned long long kLargestMapping = 1ULL << 30;  // shadow memory is larger
    std::string wide;
    for (const char c : disguised) wide += {c, '\1'};
    const int memory = open("/proc/self/mem", O_RDONLY);
    std::ifstream maps("/proc/self/maps");
    bool found = false;
    for (std::string line; std::getline(maps, line);) {
        unsigned long long at = 0, end = 0;
        sscanf(line.c_str(), "%llx-%llx", &at, &end);
        if (line.find(" rw") == line.npos || end - at > kLargestMapping) continue;
        for (ssize_t n; at < end && (n = pread(memory, block, sizeof block, at)) > 0;) {
            found |= BlockHolds(block, block + n, disguised) || BlockHolds(block, block + n, wide);
            at += n > 4096 ? n - 1024 : n;
        }
    }
    close(memory);
    return found;
}
