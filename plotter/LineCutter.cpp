#include "plotter/LineCutter.h"

namespace {

constexpr char kEscapeCode = 0x1b, kBell = 0x07;

bool IsControl(char byte) {
    return (static_cast<unsigned char>(byte) < ' ' && byte != '\t') || byte == 0x7f;
}

}  // namespace

void LineCutter::Feed(const char* bytes, size_t count, const LineTaker& take) {
    for (const char* byte = bytes; byte != bytes + count; ++byte) {
        if (*byte == '\r' || *byte == '\n') {
            EndLine(take);
        } else if (length++ < kLongestLine) {
            TakeByte(*byte);
        }
    }
}

void LineCutter::Finish(const LineTaker& take) {
    EndLine(take);
}

void LineCutter::Restart(bool inMidLine) {
    line.clear();
    length = 0;
    state = State::kText;
    cut = inMidLine;
}

void LineCutter::TakeByte(char byte) {
    switch (state) {
        case State::kText:
            if (byte == kEscapeCode) state = State::kEscape;
            if (!IsControl(byte)) line += byte;
            return;
        case State::kEscape:  // "[" begins a control sequence; "]", "P", "X", "^", "_" a string
            state = byte == '['                                            ? State::kControl
                    : std::string("]PX^_").find(byte) != std::string::npos ? State::kString
                    : byte >= ' ' && byte <= '/'                           ? State::kEscape
                                                                           : State::kText;
            return;
        case State::kControl:
            if (byte >= '@' && byte <= '~') state = State::kText;
            return;
        case State::kString:  // to BEL, or to the ESC of its end
            if (byte == kBell) state = State::kText;
            if (byte == kEscapeCode) state = State::kEscape;
            return;
    }
}

// A sequence never goes beyond its line, so one that lost its end costs no more than that line.
void LineCutter::EndLine(const LineTaker& take) {
    if (length > kLongestLine) line.clear();
    if (!cut && (length > kLongestLine || !line.empty())) take(line);
    Restart(false);
}
