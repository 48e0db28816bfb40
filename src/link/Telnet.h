// The telnet coding of text that a TCP peer sends (RFC 854 and RFC 855), taken off block
// by block. Every option is refused: the peer's console is a plain line of text here.
// Pure; any thread.
#pragma once

#include <QByteArray>
#include <cstdint>

// A subnegotiation of more bytes than this is given up, and what follows is text: a peer
// that never ends one must not silence the line for good.
constexpr int kLongestSubnegotiation = 1024;

// Refusals in answer to one block. There are 256 options, and a peer names a handful.
constexpr int kMostRefusals = 64;

enum class TelnetState : uint8_t {
    kText,
    kCommand,     // behind IAC
    kOption,      // behind WILL, WONT, DO or DONT
    kParameter,   // in a subnegotiation
    kSubCommand,  // behind IAC in a subnegotiation
};

// Where the last block ended.
struct TelnetReader {
    TelnetState state = TelnetState::kText;
    uint8_t verb = 0;    // WILL, WONT, DO or DONT
    int parameters = 0;  // bytes of the subnegotiation so far
};

// Takes commands, negotiations and NUL, which says nothing in a text and stands behind
// each CR that is one, out of `bytes`; IAC IAC becomes one byte 255. The count that stays.
// What the peer has to be told is added to `refusals`.
int64_t ReadTelnet(TelnetReader& reader, uint8_t* bytes, int64_t count, QByteArray& refusals);
