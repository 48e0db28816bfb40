// The telnet console of a WebMite over TCP: how its firmware wraps the console's bytes
// (RFC 854, with the firmware's own habits).
#pragma once

#include <string>
#include <string_view>

namespace simulator {

constexpr size_t kTelnetSegment = 4;  // bytes that the board sends at once

struct TelnetCoding {
    bool afterCr = false;  // the byte before was a CR
    bool afterFf = false;  // the byte before was a 255 that counts
};

// What the board sends when a host connects: 16 bytes.
std::string TelnetGreeting();

// The board's bytes for the line: NUL behind each CR, 255 doubled.
std::string EncodeTelnet(std::string_view bytes);

// The host's bytes for the board. One call for each TCP segment: a segment that starts
// with 255 is thrown away whole, whatever else it holds.
std::string DecodeTelnet(TelnetCoding& coding, std::string_view segment);

}  // namespace simulator
