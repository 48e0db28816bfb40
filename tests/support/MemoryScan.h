// Whether a text stands anywhere in this process. Memory that was given back is looked at
// as well: a sanitizer keeps it for a while as it was. What is only read, as a literal is,
// and what is shared, as the blocks of this search are, is not looked at.
#pragma once

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <fstream>

// As one byte a character, or two. The text is a literal: a copy would be found.
inline bool MemoryHolds(const char* text) {
    constexpr size_t kBlock = 1 << 20;
    constexpr unsigned long long kLargestMapping = 1ULL << 30;  // shadow memory is larger
    const size_t length = strlen(text);
    auto* const wide = static_cast<char*>(
        mmap(nullptr, 3 * kBlock, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    for (size_t i = 0; i < length; ++i) wide[2 * i] = text[i];
    char* const block = wide + kBlock;
    const int memory = open("/proc/self/mem", O_RDONLY);
    std::ifstream maps("/proc/self/maps");
    bool found = false;
    for (std::string line; std::getline(maps, line);) {
        unsigned long long at = 0, end = 0;
        sscanf(line.c_str(), "%llx-%llx", &at, &end);
        if (line.find(" rw-p") == line.npos || end - at > kLargestMapping) continue;
        for (ssize_t n; at < end && (n = pread(memory, block, kBlock, at)) > 0;) {
            const char* p = block;
            for (; (p = static_cast<const char*>(memchr(p, text[0], size_t(block + n - p)))); ++p)
                found |= memcmp(p, text, length) == 0 || memcmp(p, wide, 2 * length) == 0;
            at += n > 4096 ? n - 1024 : n;
        }
    }
    close(memory);
    munmap(wide, 3 * kBlock);
    return found;
}
