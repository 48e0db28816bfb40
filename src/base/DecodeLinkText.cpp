#include "base/DecodeLinkText.h"

#include <cstring>

namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;

enum class Outcome {
    kCharacter,
    kNothing,  // the character was broken off and gives nothing
    kEnd,      // the text ends here
    kRefused,  // the whole chunk is no text
};

// Bytes of the character that `lead` begins; 0 for a byte that begins none.
int SequenceLength(uint8_t lead) {
    if (lead < 0xC0) return 0;
    if (lead < 0xE0) return 2;
    if (lead < 0xF0) return 3;
    return lead < 0xF8 ? 4 : 0;
}

// Reads the multi-byte character at `at` and moves behind it.
Outcome ReadCharacter(const uint8_t*& at, const uint8_t* end, char32_t& value) {
    const int length = SequenceLength(*at);
    if (length == 0) return Outcome::kRefused;
    value = *at++ & (0x7F >> length);
    for (int i = 1; i < length; ++i) {
        if (at == end) return Outcome::kEnd;
        const uint8_t byte = *at++;
        if ((byte & 0xC0) != 0x80) return Outcome::kNothing;
        value = value << 6 | (byte & 0x3F);
    }
    return value > kLastCodePoint ? Outcome::kEnd : Outcome::kCharacter;
}

ushort* PutCharacter(ushort* out, char32_t value) {
    if (value > 0xFFFF) {
        *out++ = QChar::highSurrogate(value);
        *out++ = QChar::lowSurrogate(value);
    } else {
        *out++ = static_cast<ushort>(value);
    }
    return out;
}

// Widens the ASCII bytes at `at`, nearly all that a device sends, eight at a time.
void CopyAscii(const uint8_t*& at, const uint8_t* end, ushort*& out) {
    constexpr uint64_t kHighBits = 0x8080808080808080;
    uint64_t eight = 0;
    while (end - at >= 8) {
        memcpy(&eight, at, sizeof eight);
        if (eight & kHighBits) break;
        for (int i = 0; i < 8; ++i) out[i] = at[i];
        at += 8;
        out += 8;
    }
    while (at < end && *at < 0x80) *out++ = *at++;
}

}  // namespace

QString DecodeLinkText(const void* buffer, int64_t count) {
    if (!buffer || count < 1) return QString();
    const uint8_t* at = static_cast<const uint8_t*>(buffer);
    const void* zero = memchr(at, 0, static_cast<size_t>(count));
    const uint8_t* end = zero ? static_cast<const uint8_t*>(zero) : at + count;

    // A character of n bytes gives at most n units, so the text never outgrows this.
    QString text(static_cast<int>(end - at), Qt::Uninitialized);
    ushort* const start = reinterpret_cast<ushort*>(text.data());
    ushort* out = start;
    for (CopyAscii(at, end, out); at < end; CopyAscii(at, end, out)) {
        char32_t value = 0;
        const Outcome outcome = ReadCharacter(at, end, value);
        if (outcome == Outcome::kRefused) return QString();
        if (outcome == Outcome::kEnd) break;
        if (outcome == Outcome::kCharacter) out = PutCharacter(out, value);
    }
    text.truncate(static_cast<int>(out - start));
    return text;
}
