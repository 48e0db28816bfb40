#include "terminal/screen/TerminalSettings.h"

namespace {

TerminalSettings settings;

}  // namespace

const TerminalSettings& terminalSettings = settings;

TerminalSettings& TerminalSettingsForTable() {
    return settings;
}

void SetTerminalFont(const QString& name, int size) {
    settings.fontName = name;
    settings.fontSize = size;
}

void SetAllowResize(bool on) {
    settings.allowResize = on;
}

void SetWordWrap(bool on) {
    settings.wordWrap = on;
}

void SetCanvasSize(int width, int height) {
    settings.canvasWidth = width;
    settings.canvasHeight = height;
}

void SetAskedSize(int cols, int rows) {
    settings.cols = cols;
    settings.rows = rows;
}

void SetDarkBackground(bool dark) {
    settings.darkBackground = dark;
}
