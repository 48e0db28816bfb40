#include "simulator/KeyDecoder.h"

#include <string_view>
#include <utility>

// The sequences are those of VT100 and VT220 keyboards (ECMA-48 CSI and SS3).

namespace simulator {
namespace {

constexpr char kEscape = 27;

struct KeyRow {
    std::string_view sequence;  // behind ESC
    unsigned char code;
};

const KeyRow kKeys[] = {
    {"[A", 0x80},      {"[B", kKeyDown}, {"[C", 0x83},     {"[D", 0x82},     {"[1~", 0x86},
    {"[H", 0x86},      {"[4~", 0x87},    {"[F", 0x87},     {"[2~", 0x84},    {"[3~", 0x7f},
    {"[5~", 0x88},     {"[6~", 0x89},    {"OP", kKeyF1},   {"OQ", kKeyF2},   {"OR", kKeyF3},
    {"OS", kKeyF4},    {"[11~", kKeyF1}, {"[12~", kKeyF2}, {"[13~", kKeyF3}, {"[14~", kKeyF4},
    {"[15~", 0x95},    {"[17~", 0x96},   {"[18~", 0x97},   {"[19~", 0x98},   {"[20~", 0x99},
    {"[21~", kKeyF10}, {"[23~", 0x9b},   {"[24~", 0x9c},
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
std::string DecodeKeyByte(KeyDecoder& decoder, unsigned char c) {
    std::string& held = decoder.held;
    if (c == kEscape) return std::exchange(held, std::string(1, kEscape));
    held += static_cast<char>(c);
    const unsigned char code = held.size() > 1 ? MatchKey(std::string_view(held).substr(1)) : 0;
    if (code == 1) return {};
    if (code > 1) held.assign(1, static_cast<char>(code));
    return DecodeKeyTimeout(decoder);
}

std::string DecodeKeyTimeout(KeyDecoder& decoder) {
    return std::exchange(decoder.held, {});
}

}  // namespace simulator
