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
// will be. Ink outside the glyph's box is cut. At x 0 the toolkit places a glyph a fraction
// of a pixel off where it stands at every other x.
QImage DrawGlyph(const KnownFont& known, int width, char16_t character) {
    constexpr int kLeft = 4;
    QImage image(kLeft + width, known.height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(known.font);
    painter.setPen(Qt::white);
    painter.drawText(kLeft, known.ascent, QString(QChar(character)));
    painter.end();
    return image.copy(kLeft, 0, width, known.height);
}

void TakeCoverage(const QImage& image, KnownGlyph* glyph) {
    GlyphMask& mask = glyph->mask;
    glyph->coverage.resize(static_cast<size_t>(mask.width) * mask.height);
    uint8_t* out = glyph->coverage.data();
    mask.inkTop = mask.height;
    for (int row = 0; row < mask.height; ++row) {
        const QRgb* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(row));
        bool ink = false;
        for (int x = 0; x < mask.width; ++x) {
            *out = static_cast<uint8_t>(qAlpha(pixels[x]));
            ink |= *out++ != 0;
        }
        if (!ink) continue;
        mask.inkTop = std::min(mask.inkTop, row);
        mask.inkBottom = row + 1;
    }
    mask.coverage = glyph->coverage.data();
}

void Draw(const KnownFont& known, char16_t character, KnownGlyph* glyph) {
    glyph->drawn = true;
    glyph->mask.width = glyph->width;
    glyph->mask.height = known.height;
    if (glyph->width <= 0 || known.height <= 0) return;
    TakeCoverage(DrawGlyph(known, glyph->width, character), glyph);
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
