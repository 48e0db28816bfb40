#include "ui/GlyphMasks.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>
#include <memory>
#include <unordered_map>
#include <vector>

#include "ui/FontTable.h"

namespace {

constexpr int kPageGlyphs = 256;
constexpr int kUnknown = -1;
constexpr int kAsciiCodes = 128;

struct KnownGlyph {
    int32_t width = kUnknown;
    bool drawn = false;
    GlyphMask mask;
    std::vector<uint8_t> coverage;
};

using Page = std::array<KnownGlyph, kPageGlyphs>;

struct KnownFont {
    QFont font;
    int height = 0;
    int ascent = 0;
    int widestAscii = 0;
    std::array<int8_t, kAsciiCodes> asciiReach;  // kUnknown until asked for
    std::array<std::unique_ptr<Page>, 65536 / kPageGlyphs> pages;
};

std::unordered_map<int, std::unique_ptr<KnownFont>> knownFonts;
KnownFont* latestFont = nullptr;  // of latestNumber: most calls ask for the same font
int latestNumber = kUnknown;
int maskBytes = 0;

int Measure(const KnownFont& known, char16_t character) {
    const int width = QFontMetrics(known.font).horizontalAdvance(QChar(character));
    return std::clamp(width, 0, kWidestGlyph);
}

std::unique_ptr<KnownFont> LearnFont(const QFont& font) {
    auto known = std::make_unique<KnownFont>();
    const QFontMetrics metrics(font);
    known->font = font;
    known->asciiReach.fill(kUnknown);
    known->asciiReach[0] = 0;  // no character
    known->height = metrics.height();
    known->ascent = metrics.ascent();
    for (char16_t c = ' '; c <= '~'; ++c) {
        known->widestAscii = std::max(known->widestAscii, Measure(*known, c));
    }
    return known;
}

KnownFont* FontOf(int font) {
    if (font == latestNumber) return latestFont;
    std::unique_ptr<KnownFont>& known = knownFonts[font];
    if (!known) {
        const QFont* numbered = NumberedFont(font);
        if (!numbered) {
            knownFonts.erase(font);
            return nullptr;
        }
        known = LearnFont(*numbered);
    }
    latestNumber = font;
    latestFont = known.get();
    return latestFont;
}

KnownGlyph& EntryOf(KnownFont* known, char16_t character) {
    std::unique_ptr<Page>& page = known->pages[character / kPageGlyphs];
    if (!page) page = std::make_unique<Page>();
    KnownGlyph& glyph = (*page)[character % kPageGlyphs];
    if (glyph.width == kUnknown) glyph.width = Measure(*known, character);
    return glyph;
}

void DropAllMasks() {
    for (auto& known : knownFonts) {
        for (auto& page : known.second->pages) page.reset();
    }
    maskBytes = 0;
}

// The alpha of opaque text on a clear image is the coverage itself, whatever the colours
// will be. The glyph's box has `margin` pixels around it. At x 0 the toolkit places a glyph a
// fraction of a pixel off where it stands at every other x.
QImage DrawGlyph(const KnownFont& known, int width, int margin, char16_t character) {
    const QSize size(width + 2 * margin, known.height + 2 * margin);
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(known.font);
    painter.setPen(Qt::white);
    painter.drawText(margin, margin + known.ascent, QString(QChar(character)));
    painter.end();
    return image;
}

// Alpha at a place of the box, which begins at `margin` of the image.
int InkAt(const QImage& image, int margin, int x, int y) {
    const uchar* const row = image.constScanLine(margin + y);
    return qAlpha(reinterpret_cast<const QRgb*>(row)[margin + x]);
}

// How far outside of 0 to before `side` a pixel lies.
int Outside(int at, int side) {
    return std::max({0, -at, at - side + 1});
}

// Room around the box for the ink: its bounds as the font tells them, and what smoothing adds.
int MarginOf(const KnownFont& known, int width, char16_t character) {
    constexpr int kSmoothing = 2;  // pixels
    const QRect ink = QFontMetrics(known.font).boundingRect(QChar(character));
    const int beside = std::max(Outside(ink.left(), width), Outside(ink.right(), width));
    const int above = Outside(known.ascent + ink.top(), known.height);
    const int below = Outside(known.ascent + ink.bottom(), known.height);
    return std::min(std::max({beside, above, below}) + kSmoothing, kLongestReach);
}

void FindInk(const QImage& image, int margin, GlyphMask* mask) {
    mask->inkTop = mask->height;
    for (int y = -margin; y < mask->height + margin; ++y) {
        for (int x = -margin; x < mask->width + margin; ++x) {
            if (InkAt(image, margin, x, y) == 0) continue;
            mask->reach =
                std::max({mask->reach, Outside(x, mask->width), Outside(y, mask->height)});
            mask->inkTop = std::clamp(y, 0, mask->inkTop);
            mask->inkBottom = std::clamp(y + 1, mask->inkBottom, mask->height);
        }
    }
}

void TakeCoverage(const QImage& image, int margin, KnownGlyph* glyph) {
    GlyphMask& mask = glyph->mask;
    mask.stride = mask.width + 2 * mask.reach;
    for (int y = -mask.reach; y < mask.height + mask.reach; ++y) {
        for (int x = -mask.reach; x < mask.width + mask.reach; ++x) {
            glyph->coverage.push_back(static_cast<uint8_t>(InkAt(image, margin, x, y)));
        }
    }
    mask.coverage = glyph->coverage.data() + mask.reach * mask.stride + mask.reach;
}

void Draw(const KnownFont& known, char16_t character, KnownGlyph* glyph) {
    glyph->drawn = true;
    glyph->mask.width = glyph->width;
    glyph->mask.height = known.height;
    if (known.height <= 0) return;
    const int margin = MarginOf(known, glyph->width, character);
    const QImage image = DrawGlyph(known, glyph->width, margin, character);
    FindInk(image, margin, &glyph->mask);
    TakeCoverage(image, margin, glyph);
    maskBytes += static_cast<int>(glyph->coverage.size());
}

const GlyphMask kNoGlyph;

const GlyphMask& LearnGlyph(int font, char16_t character) {
    KnownFont* known = FontOf(font);
    if (!known) return kNoGlyph;
    if (maskBytes >= kMostMaskBytes) DropAllMasks();
    KnownGlyph& glyph = EntryOf(known, character);
    if (!glyph.drawn) Draw(*known, character, &glyph);
    return glyph.mask;
}

int LearnReach(int font, char16_t character) {
    const int reach = GlyphOf(font, character).reach;
    if (character < kAsciiCodes) latestFont->asciiReach[character] = static_cast<int8_t>(reach);
    return reach;
}

}  // namespace

const GlyphMask& GlyphOf(int font, char16_t character) {
    if (font == latestNumber) {
        const Page* page = latestFont->pages[character / kPageGlyphs].get();
        if (page && (*page)[character % kPageGlyphs].drawn) {
            return (*page)[character % kPageGlyphs].mask;
        }
    }
    return LearnGlyph(font, character);
}

int GlyphWidth(int font, char16_t character) {
    KnownFont* known = FontOf(font);
    return known ? EntryOf(known, character).width : 0;
}

int WidestAsciiGlyph(int font) {
    const KnownFont* known = FontOf(font);
    return known ? known->widestAscii : 0;
}

int LongestReach(int font, const char16_t* text, int count) {
    const KnownFont* known = FontOf(font);
    if (!known) return 0;
    int longest = 0;
    for (int i = 0; i < count; ++i) {
        const char16_t c = text[i];
        const int kept = c < kAsciiCodes ? known->asciiReach[c] : kUnknown;
        longest = std::max(longest, kept != kUnknown ? kept : LearnReach(font, c));
    }
    return longest;
}

int GlyphHeight(int font) {
    const KnownFont* known = FontOf(font);
    return known ? known->height : 0;
}

void ForgetGlyphs(int font) {
    latestNumber = kUnknown;
    latestFont = nullptr;
    const auto found = knownFonts.find(font);
    if (found == knownFonts.end()) return;
    for (const auto& page : found->second->pages) {
        if (!page) continue;
        for (const KnownGlyph& glyph : *page) maskBytes -= static_cast<int>(glyph.coverage.size());
    }
    knownFonts.erase(found);
}
