// The telnet console of a WebMite over TCP: how its firmware wraps the console's bytes
// (RFC 854, with the firmware's own habits).
#pragma once

#include <string>
#include <string_view>

namespace simulator {

struct TelnetCoding {
    std::string greeting;  // that is still to be sent
    bool afterCr = false;  // the byte before was a CR
    bool afterFf = false;  // the byte before was a 255 that counts
};

// A host has connected: 16 bytes greet it, and what was half received is forgotten.
void StartTelnet(TelnetCoding& coding);

// The board's bytes for the line: NUL behind each CR, 255 doubled, the greeting in front.
std::string EncodeTelnet(TelnetCoding& coding, std::string_view bytes);

// The host's bytes for the board. One call for each TCP segment: a segment that starts
// with 255 is thrown away whole, whatever else it holds.
std::string DecodeTelnet(TelnetCoding& coding, std::string_view segment);

}  // namespace simulator
