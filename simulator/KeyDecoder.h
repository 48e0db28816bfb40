// Keys out of bytes: escape sequences of VT keyboards become the firmware's own key
// codes. A lone ESC holds what follows for a moment, because a sequence may come.
#pragma once

#include <cstdint>
#include <string>

namespace simulator {

// Key codes of the firmware; characters stand for themselves. The same codes count when
// they come as raw bytes.
constexpr unsigned char kKeyDown = 0x81;
constexpr unsigned char kKeyF1 = 0x91;
constexpr unsigned char kKeyF2 = 0x92;
constexpr unsigned char kKeyF3 = 0x93;
constexpr unsigned char kKeyF4 = 0x94;
constexpr unsigned char kKeyF10 = 0x9a;

// How long an unfinished sequence is held, ms.
constexpr int64_t kEscapeHoldMs = 30;

struct KeyDecoder {
    std::string held;  // an unfinished sequence with its ESC; at most 5 bytes
};

// Takes one byte and gives the keys that are complete: none while a sequence is held,
// several when a held one turned out to be plain characters.
std::string DecodeKeyByte(KeyDecoder& decoder, unsigned char c);

// Time is up for what is held: it was characters.
std::string DecodeKeyTimeout(KeyDecoder& decoder);

}  // namespace simulator
