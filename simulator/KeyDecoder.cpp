#include "simulator/KeyDecoder.h"

#include <string_view>

// The sequences are those of VT100 and VT220 keyboards (ECMA-48 CSI and SS3).

namespace simulator {
namespace {

constexpr char kEscape = 27;

struct KeyRow {
    std::string_view sequence;  // behind ESC
    unsigned char code;
};

const KeyRow kKeys[] = {
    {"[A", kKeyUp},    {"[B", kKeyDown},  {"[C", 0x83},      {"[D", 0x82},     {"[1~", 0x86},
    {"[H", 0x86},      {"[4~", 0x87},     {"[F", 0x87},      {"[2~", 0x84},    {"[3~", 0x7f},
    {"[5~", 0x88},     {"[6~", 0x89},     {"OP", kKeyF1},    {"OQ", kKeyF2},   {"OR", kKeyF3},
    {"OS", kKeyF4},    {"[11~", kKeyF1},  {"[12~", kKeyF2},  {"[13~", kKeyF3}, {"[14~", kKeyF4},
    {"[15~", 0x95},    {"[17~", kKeyF6},  {"[18~", 0x97},    {"[19~", 0x98},   {"[20~", 0x99},
    {"[21~", kKeyF10}, {"[23~", kKeyF11}, {"[24~", kKeyF12},
};

// The code of a whole sequence; 1: more has to come; 0: it is none.
unsigned char MatchKey(std::string_view afterEscape) {
    unsigned char best = 0;
    for (const KeyRow& row : kKeys) {
        if (row.sequence == afterEscape) return row.code;
        if (row.sequence.substr(0, afterEscape.size()) == afterEscape) best = 1;
    }
    return best;
}

}  // namespace

// What turns out to be no sequence is passed on as characters, ESC included; but a second
// ESC may start a sequence of its own.
void DecodeKeyByte(KeyDecoder& decoder, unsigned char c, std::string* keys) {
    std::string& held = decoder.held;
    if (c == kEscape || held.empty()) {
        *keys += held;
        held.assign(1, static_cast<char>(c));
        if (c != kEscape) DecodeKeyTimeout(decoder, keys);
        return;
    }
    held += static_cast<char>(c);
    const unsigned char code = MatchKey(std::string_view(held).substr(1));
    if (code > 1) held.assign(1, static_cast<char>(code));
    if (code != 1) DecodeKeyTimeout(decoder, keys);
}

void DecodeKeyTimeout(KeyDecoder& decoder, std::string* keys) {
    *keys += decoder.held;
    decoder.held.clear();
}

}  // namespace simulator
