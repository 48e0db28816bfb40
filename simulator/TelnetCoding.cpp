#include "simulator/TelnetCoding.h"

#include <utility>

namespace simulator {
namespace {

constexpr char kFf = '\xff';

}  // namespace

// IAC WILL and DO for suppress-go-ahead, WILL echo, DO and DON'T linemode, and a NUL that is no
// part of any of them.
void StartTelnet(TelnetCoding& coding) {
    coding = {
        {"\xff\xfb\x03\xff\xfd\x03\xff\xfb\x01\xff\xfd\x22\xff\xfe\x22\x00", 16}, false, false};
}

// There is no LF rule: a line end becomes CR NUL LF.
std::string EncodeTelnet(TelnetCoding& coding, std::string_view bytes) {
    std::string coded = std::exchange(coding.greeting, {});
    for (const char c : bytes) {
        coded += c;
        if (c == '\r') coded += '\0';
        if (c == kFf) coded += kFf;
    }
    return coded;
}

// A segment that starts with 255 is taken for a negotiation, even in the middle of a transfer.
std::string DecodeTelnet(TelnetCoding& coding, std::string_view segment) {
    std::string plain;
    if (!segment.empty() && segment[0] == kFf) return plain;
    for (const char c : segment) {
        const bool dropped = (coding.afterCr && c == '\0') || (coding.afterFf && c == kFf);
        coding.afterCr = c == '\r';
        coding.afterFf = c == kFf && !dropped;
        if (!dropped) plain += c;
    }
    return plain;
}

}  // namespace simulator
