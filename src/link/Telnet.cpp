#include "link/Telnet.h"

namespace {

// RFC 854's names.
constexpr uint8_t kSe = 240;
constexpr uint8_t kSb = 250;
constexpr uint8_t kWill = 251;
constexpr uint8_t kWont = 252;
constexpr uint8_t kDo = 253;
constexpr uint8_t kDont = 254;
constexpr uint8_t kIac = 255;

constexpr int kRefusalBytes = 3;

// A peer that turns an option off is not answered: it is off already.
void Refuse(uint8_t verb, uint8_t option, QByteArray& refusals) {
    if (verb != kWill && verb != kDo) return;
    if (refusals.size() >= kMostRefusals * kRefusalBytes) return;
    refusals += static_cast<char>(kIac);
    refusals += static_cast<char>(verb == kWill ? kDont : kWont);
    refusals += static_cast<char>(option);
}

TelnetState BehindCommand(TelnetReader& reader, uint8_t command) {
    reader.verb = command;
    reader.parameters = 0;
    if (command >= kWill) return TelnetState::kOption;
    return command == kSb ? TelnetState::kParameter : TelnetState::kText;
}

TelnetState BehindParameter(TelnetReader& reader, uint8_t byte) {
    if (byte == kIac) return TelnetState::kSubCommand;
    return ++reader.parameters < kLongestSubnegotiation ? TelnetState::kParameter
                                                        : TelnetState::kText;
}

// IAC IAC stands for a parameter. Anything but that and the end breaks off.
TelnetState BehindSubCommand(TelnetReader& reader, uint8_t byte) {
    if (byte == kSe) return TelnetState::kText;
    if (byte != kIac) return BehindCommand(reader, byte);
    return BehindParameter(reader, 0);
}

// Moves on by one byte; true when it is text.
bool TakeByte(TelnetReader& reader, uint8_t byte, QByteArray& refusals) {
    switch (reader.state) {
        case TelnetState::kText:
            if (byte == kIac) reader.state = TelnetState::kCommand;
            return byte != kIac && byte != 0;
        case TelnetState::kCommand:
            reader.state = byte == kIac ? TelnetState::kText : BehindCommand(reader, byte);
            return byte == kIac;
        case TelnetState::kOption:
            Refuse(reader.verb, byte, refusals);
            reader.state = TelnetState::kText;
            return false;
        case TelnetState::kParameter:
            reader.state = BehindParameter(reader, byte);
            return false;
        case TelnetState::kSubCommand:
            reader.state = BehindSubCommand(reader, byte);
            return false;
    }
    return false;
}

}  // namespace

int64_t ReadTelnet(TelnetReader& reader, uint8_t* bytes, int64_t count, QByteArray& refusals) {
    uint8_t* out = bytes;
    for (const uint8_t *at = bytes, *end = bytes + count; at < end; ++at) {
        if (TakeByte(reader, *at, refusals)) *out++ = *at;
    }
    return out - bytes;
}
