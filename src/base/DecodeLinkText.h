// Arrived bytes as text, one chunk at a time: nothing is carried into the next chunk.
// Pure; any thread.
#pragma once

#include <QString>
#include <cstdint>

// Decodes `count` bytes of UTF-8 (RFC 3629) up to the first 0 byte; a value above
// U+FFFF becomes a surrogate pair. `count` bounds the characters as well, which it can
// never cut since each takes a byte or more, and nothing behind `count` bytes is read.
//
// What is not UTF-8:
// - a lead byte of 0x80 to 0xBF, or of 0xF8 and above, empties the whole result;
// - a character that the chunk's end cuts off is dropped;
// - a byte that should continue a character and does not is taken with it, and neither
//   gives a character;
// - a value above 0x10FFFF ends the text in front of it.
// Overlong forms and single surrogates pass as the value that they spell.
QString DecodeLinkText(const void* buffer, int64_t count);
