// DecodeLinkText against a plain reading of its rules, from a block of exactly the
// chunk's size.
#include <cstdlib>
#include <vector>

#include "base/DecodeLinkText.h"

namespace {

void Append(std::vector<ushort>& text, uint32_t value) {
    if (value > 0xFFFF) {
        text.push_back(static_cast<ushort>(0xD800 + ((value - 0x10000) >> 10)));
        value = 0xDC00 + (value & 0x3FF);
    }
    text.push_back(static_cast<ushort>(value));
}

std::vector<ushort> PlainReading(const std::vector<uint8_t>& bytes) {
    std::vector<ushort> text;
    size_t count = 0;
    while (count < bytes.size() && bytes[count]) ++count;
    for (size_t at = 0; at < count;) {
        uint32_t value = bytes[at++];
        if ((value >= 0x80 && value < 0xC0) || value >= 0xF8) return {};
        int left = value < 0x80 ? 0 : value < 0xE0 ? 1 : value < 0xF0 ? 2 : 3;
        if (left) value &= 0x3F >> left;
        bool good = true;
        for (; left > 0 && good; --left) {
            if (at == count) return text;
            good = bytes[at] >= 0x80 && bytes[at] < 0xC0;
            value = value * 64 + bytes[at++] % 64;
        }
        if (good && value > 0x10FFFF) return text;
        if (good) Append(text, value);
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<uint8_t> bytes(data, data + size);
    const QString text = DecodeLinkText(bytes.data(), static_cast<int64_t>(size));
    const std::vector<ushort> expected = PlainReading(bytes);
    const std::vector<ushort> got(text.utf16(), text.utf16() + text.size());
    if (got != expected) abort();
    return 0;
}
