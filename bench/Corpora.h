// Streams as a busy device would send them. The same on every machine.
#pragma once

#include <string>

// Dense lines of 80 printable characters, CR LF, scrolling.
std::string AsciiCorpus(size_t size);
// The same with a change of look (SGR 0, 1, 7, 30-37, 40-47) every 2 to 6 characters.
std::string ColourCorpus(size_t size);
// Full-screen updates: CSI row ; column H, text, CSI K on rows 1 to 50; never scrolls.
std::string CursorCorpus(size_t size);
