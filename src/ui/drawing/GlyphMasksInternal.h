// Glyphs as coverage: one byte for each pixel of a glyph's box, 0 for background and 255
// for foreground. The toolkit draws each glyph of a font at the picture's scale, once, as
// it would draw it in a label. Interface thread.
#pragma once

#include <cstdint>
#include <vector>

// Bound of what is kept. When it is reached all masks are dropped.
constexpr int kMostMaskBytes = 8 * 1024 * 1024;
// A wider glyph is cut, so that one character of a strange font stays affordable.
constexpr int kWidestGlyph = 1024;  // in canvas units
// Ink that leaves a glyph's box further is cut.
constexpr int kLongestReach = 64;  // in canvas units

struct GlyphMask {
    int advance = 0;                // width of the glyph's box, in canvas units
    int width = 0, height = 0;      // of the glyph's box, in pixels
    int inkTop = 0, inkBottom = 0;  // rows of the box from inkTop to before inkBottom have ink
    int reach = 0;                  // pixels by which ink leaves the box on any side
    std::vector<uint8_t> coverage;  // of the box and `reach` pixels around it

    int Stride() const { return width + 2 * reach; }
    // Of a pixel, counted from the box's first.
    const uint8_t* At(int x, int y) const {
        return coverage.data() + (y + reach) * Stride() + (x + reach);
    }
};

// The glyph of one code unit at a scale of PaintRecord.h. An unknown font gives an empty
// one. It stays valid until the next call.
const GlyphMask& GlyphOf(int font, char16_t character, int scale);

// Drops all masks.
void ForgetGlyphs();
