#include "terminal/screen/TerminalFonts.h"

#include <algorithm>

#include "terminal/screen/CellPainting.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/drawing/Drawing.h"
#include "ui/drawing/Fonts.h"

namespace {

TerminalMetrics metrics;

void Reload(int* font, int style) {
    if (*font >= 0) FreeNumberedFont(*font);
    *font = LoadNumberedFont(kAnyFont, terminalSettings.fontName, terminalSettings.fontSize, style);
}

int HeldCell(int measured, int extra) {
    const int64_t side = int64_t{measured} + extra;
    return static_cast<int>(std::clamp<int64_t>(side, 1, kLargestCell));
}

}  // namespace

const TerminalMetrics& terminalMetrics = metrics;

void MeasureTerminal() {
    metrics.charWidth =
        HeldCell(TextWidthOf(metrics.normalFont, "W"), terminalSettings.extraCharPixels);
    metrics.charHeight =
        HeldCell(TextHeightOf(metrics.normalFont), terminalSettings.extraLinePixels);
    SetCanvasSize(terminalScreen.cols * metrics.charWidth + 2 * kCanvasMargin,
                  terminalScreen.rows * metrics.charHeight + 2 * kCanvasMargin);
}

void LoadTerminalFonts() {
    Reload(&metrics.normalFont, kFontPlain);
    Reload(&metrics.boldFont, kFontBold);
    // The third font has no style either: it changes nothing that can be seen.
    Reload(&metrics.thirdFont, kFontPlain);
    MeasureTerminal();
}
