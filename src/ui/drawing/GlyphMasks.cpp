#include "ui/drawing/Fonts.h"
#include "ui/drawing/GlyphMasksInternal.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <array>

#include "ui/drawing/FontsInternal.h"
#include "ui/drawing/PaintRecord.h"

namespace {

constexpr int kPlaces = 4096;     // two glyphs that share a place take turns
constexpr int kFontStride = 256;  // places from a font's glyphs to those of the next number
constexpr int kNoFont = -1;

struct KnownGlyph {
    int font = kNoFont;
    char16_t character = 0;
    GlyphMask mask;
};

std::array<KnownGlyph, kPlaces> known;
int knownScale = 0;  // of all that are known
int knownBytes = 0;

// The alpha of opaque text on a clear image is the coverage itself, whatever the colours
// will be. The glyph's box has `margin` pixels around it. At x 0 the toolkit places a glyph a
// fraction of a pixel off where it stands at every other x.
QImage DrawGlyph(const QFont& font, int ascent, int margin, char16_t character,
                 const GlyphMask& mask) {
    const double scale = 1.0 * knownScale / kScaleOne;
    QImage image(mask.width + 2 * margin, mask.height + 2 * margin,
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.translate(margin, margin);
    painter.scale(scale, scale);
    painter.drawText(0, ascent, QString(QChar(character)));
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
int MarginOf(const QFont& font, const FontMeasures& measures, int advance, char16_t character) {
    constexpr int kSmoothing = 2;
    const QRect ink = QFontMetrics(font).boundingRect(QChar(character));
    const int beside = std::max(Outside(ink.left(), advance), Outside(ink.right(), advance));
    const int above = Outside(measures.ascent + ink.top(), measures.height);
    const int below = Outside(measures.ascent + ink.bottom(), measures.height);
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

void TakeCoverage(const QImage& image, int margin, GlyphMask* mask) {
    for (int y = -mask->reach; y < mask->height + mask->reach; ++y) {
        for (int x = -mask->reach; x < mask->width + mask->reach; ++x) {
            mask->coverage.push_back(static_cast<uint8_t>(InkAt(image, margin, x, y)));
        }
    }
}

GlyphMask Draw(int number, char16_t character) {
    GlyphMask mask;
    const QFont* font = NumberedFont(number);
    if (!font || character == 0) return mask;
    const FontMeasures& measures = MeasuresOf(number);
    const int advance = QFontMetrics(*font).horizontalAdvance(QChar(character));
    mask.advance = std::clamp(advance, 0, kWidestGlyph);
    mask.width = MostPixels(mask.advance, knownScale);
    mask.height = MostPixels(measures.height, knownScale);
    if (mask.height <= 0) return mask;
    const int margin = MostPixels(MarginOf(*font, measures, mask.advance, character), knownScale);
    const QImage image = DrawGlyph(*font, measures.ascent, margin, character, mask);
    FindInk(image, margin, &mask);
    TakeCoverage(image, margin, &mask);
    return mask;
}

}  // namespace

const GlyphMask& GlyphOf(int font, char16_t character, int scale) {
    if (scale != knownScale || knownBytes > kMostMaskBytes) ForgetGlyphs();
    knownScale = scale;
    KnownGlyph& place = known[static_cast<unsigned>(font * kFontStride + character) % kPlaces];
    if (place.font != font || place.character != character) {
        knownBytes -= static_cast<int>(place.mask.coverage.size());
        place = {font, character, Draw(font, character)};
        knownBytes += static_cast<int>(place.mask.coverage.size());
    }
    return place.mask;
}

void ForgetGlyphs() {
    known.fill(KnownGlyph());
    knownBytes = 0;
}
