#include "simulator/KeyDecoder.h"

#include <string_view>

namespace simulator {

// The sequences are those of VT100 and VT220 keyboards (ECMA-48 CSI and SS3).

namespace {

constexpr char kEscape = 27;

struct KeyRow {
    std::string_view sequence;  // behind ESC
    unsigned char code;
};

const KeyRow kKeys[] = {
    {"[A", kKeyUp},      {"[B", kKeyDown},  {"[C", kKeyRight},   {"[D", kKeyLeft},
    {"[1~", kKeyHome},   {"[H", kKeyHome},  {"[4~", kKeyEnd},    {"[F", kKeyEnd},
    {"[2~", kKeyInsert}, {"[3~", 0x7f},     {"[5~", kKeyPageUp}, {"[6~", kKeyPageDown},
    {"OP", kKeyF1},      {"OQ", kKeyF2},    {"OR", kKeyF3},      {"OS", kKeyF4},
    {"[11~", kKeyF1},    {"[12~", kKeyF2},  {"[13~", kKeyF3},    {"[14~", kKeyF4},
    {"[15~", 0x95},      {"[17~", kKeyF6},  {"[18~", 0x97},      {"[19~", 0x98},
    {"[20~", 0x99},      {"[21~", kKeyF10}, {"[23~", kKeyF11},   {"[24~", kKeyF12},
};

enum class Match { kNone, kPart, kWhole };

// A part of one sequence may be the whole of none: then more has to come.
Match MatchKey(std::string_view afterEscape, unsigned char* code) {
    Match best = Match::kNone;
    for (const KeyRow& row : kKeys) {
        if (row.sequence == afterEscape) {
            *code = row.code;
            return Match::kWhole;
        }
        if (row.sequence.substr(0, afterEscape.size()) == afterEscape) best = Match::kPart;
    }
    return best;
}

}  // namespace

// What turns out to be no sequence is passed on as characters, ESC included.
void DecodeKeyByte(KeyDecoder& decoder, unsigned char c, std::string* keys) {
    std::string& held = decoder.held;
    if (held.empty() && c != kEscape) {
        *keys += static_cast<char>(c);
        return;
    }
    held += static_cast<char>(c);
    if (held.size() == 1) return;
    unsigned char code = 0;
    switch (MatchKey(std::string_view(held).substr(1), &code)) {
        case Match::kWhole:
            *keys += static_cast<char>(code);
            held.clear();
            break;
        case Match::kPart:
            break;
        case Match::kNone:
            // A second ESC may start a sequence of its own.
            if (c == kEscape) held.pop_back();
            *keys += held;
            held.assign(c == kEscape ? 1 : 0, kEscape);
            break;
    }
}

void DecodeKeyTimeout(KeyDecoder& decoder, std::string* keys) {
    *keys += decoder.held;
    decoder.held.clear();
}

// An unfinished sequence counts as its characters: nobody holds it here.
size_t FirstKey(const std::string& bytes, unsigned char* key) {
    if (bytes.empty()) return 0;
    *key = static_cast<unsigned char>(bytes[0]);
    if (bytes[0] != kEscape) return 1;
    for (size_t size = 2; size <= bytes.size() && size <= 5; ++size) {
        if (MatchKey(std::string_view(bytes).substr(1, size - 1), key) == Match::kWhole) {
            return size;
        }
    }
    return 1;
}

}  // namespace simulator
