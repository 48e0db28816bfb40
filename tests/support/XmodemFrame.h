// What an XMODEM frame must be, written anew: the tests' own idea of it.
#pragma once

#include <string>

constexpr char kAckByte = 6, kNakByte = 21, kCanByte = 24, kEotByte = 4;

inline std::string FrameOf(int number, const std::string& data) {
    std::string frame = {data.size() == 128 ? '\1' : '\2', char(number), char(255 - number % 256)};
    int sum = 0;
    for (unsigned char byte : data) sum += byte;
    return frame + data + char(sum);
}
