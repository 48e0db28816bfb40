#include "ui/drawing/Fonts.h"

#include <QFontMetrics>
#include <algorithm>
#include <map>

#include "ui/drawing/FontsInternal.h"
#include "ui/drawing/GlyphMasksInternal.h"
#include "ui/drawing/PBCanvasWidget.h"

namespace {

constexpr int kFirstNewFont = 1000;  // above every number that the program gives itself
constexpr int kLastFont = 32767;     // cells name their font in 16 bits
constexpr int kSmallestSize = 1;     // points
constexpr int kLargestSize = 255;

struct LoadedFont {
    QFont font;
    FontMeasures measures;
};

std::map<int, LoadedFont> fonts;
const FontMeasures kNoFont;

int NewFontNumber() {
    int font = kFirstNewFont;
    while (fonts.count(font)) ++font;
    return font;
}

// What was drawn with the font so far keeps its look.
void ForgetFont(int font) {
    if (!fonts.count(font)) return;
    PBCanvasWidget::MakeAllPictures();
    ForgetGlyphs();
    fonts.erase(font);
}

FontMeasures Measure(const QFont& font) {
    const QFontMetrics metrics(font);
    return {metrics.height(), metrics.ascent()};
}

}  // namespace

int LoadNumberedFont(int font, const QString& name, int size, int style) {
    if (font == kAnyFont) font = NewFontNumber();
    if (font < 0 || font > kLastFont) return kAnyFont;
    ForgetFont(font);
    QFont loaded(name, std::clamp(size, kSmallestSize, kLargestSize));
    loaded.setBold((style & kFontBold) != 0);
    fonts[font] = {loaded, Measure(loaded)};
    return font;
}

void FreeNumberedFont(int font) {
    ForgetFont(font);
}

const QFont* NumberedFont(int font) {
    const auto found = fonts.find(font);
    return found == fonts.end() ? nullptr : &found->second.font;
}

const FontMeasures& MeasuresOf(int font) {
    const auto found = fonts.find(font);
    return found == fonts.end() ? kNoFont : found->second.measures;
}
