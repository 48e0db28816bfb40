// Glyphs as coverage: one byte for each pixel of a glyph's box, 0 for background and 255
// for foreground. The toolkit draws each glyph of a font once. Interface thread.
#pragma once

#include <cstdint>

// Bounds of what is kept. When a bound is reached all masks are dropped.
constexpr int kMostMaskBytes = 8 * 1024 * 1024;
// A wider glyph is cut, so that one character of a strange font stays affordable.
constexpr int kWidestGlyph = 1024;  // pixels

// Ink that leaves a glyph's box further is cut.
constexpr int kLongestReach = 64;  // pixels

struct GlyphMask {
    int width = 0;                      // of the glyph's box, the advance
    int height = 0;                     // of the glyph's box, the font's height
    int inkTop = 0, inkBottom = 0;      // rows from inkTop to before inkBottom have ink
    int reach = 0;                      // pixels by which ink leaves the box on any side
    int stride = 0;                     // bytes from row to row
    const uint8_t* coverage = nullptr;  // of the box's first pixel, `reach` of them around it
};

// The glyph of one code unit. An unknown font gives an empty one. The coverage stays valid
// until the next call.
const GlyphMask& GlyphOf(int font, char16_t character);

// Width of the glyph's box, and of the widest glyph among the printable characters of
// ASCII. 0 for an unknown font.
int GlyphWidth(int font, char16_t character);
int WidestAsciiGlyph(int font);
// Pixels by which the ink of these glyphs leaves their boxes, at the most.
int LongestReach(int font, const char16_t* text, int count);
// Height of every glyph's box in a font.
int GlyphHeight(int font);

// Drops what is known of a font.
void ForgetGlyphs(int font);
