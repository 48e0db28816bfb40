// The two line monitors: bytes shown as plain text and as rows of hex. Neither goes
// through the parser, so nothing in the bytes can disturb the terminal. Interface thread.
#pragma once

#include <cstdint>

// Bytes as UTF-8 text; CR LF, CR and LF all end a line, other control characters are
// shown as characters.
void TerminalPrintRaw(const void* bytes, int64_t count);

// Sixteen bytes a row: hex digits from column 2 on, characters from column 55 on. A row
// left unfinished is carried on by the next call.
void TerminalHexDump(const void* bytes, int64_t count);
