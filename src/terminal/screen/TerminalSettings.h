// The terminal's settings, filled by the settings file at start.
#pragma once

#include <QString>
#include <cstdint>

struct TerminalSettings {
    QString fontName = "Liberation Mono";
    int fontSize = 9;         // points
    int extraCharPixels = 1;  // added to the measured cell width
    int extraLinePixels = 1;  // added to the measured cell height
    int darkBackground = 1;
    int cols = 101;  // asked for; terminalScreen.cols is what is in force
    int rows = 50;
    int defaultCols = 101;  // for RestoreDefaultTerminalSize
    int defaultRows = 50;
    int tabStops = 8;
    int allowResize = 1;      // the device may resize the terminal
    int scrollBack = 1024;    // lines
    int maxLineLength = 256;  // columns read by text extraction
    int wordWrap = 0;         // kept and saved; has no effect
    int terminalMode = 0;     // at start
    int canvasWidth = 913;    // pixels; recomputed once fonts are measured
    int canvasHeight = 654;
    int xtermMouse = 1;    // value that the device's request gives to mouseMode
    int adviseCopied = 1;  // the selection's copy switch
    uint32_t palette[8] = {0x000000, 0x0000CD, 0x00CD00, 0x00E1E1,
                           0xE10000, 0xCD00CD, 0xCDCD00, 0xFFFFFF};  // black red green yellow
                                                                     // blue magenta cyan white
};

extern const TerminalSettings& terminalSettings;

// For the settings table alone, which fills the record at start and reads it at the end.
TerminalSettings& TerminalSettingsForTable();

void SetTerminalFont(const QString& name, int size);
void SetAllowResize(bool on);
void SetWordWrap(bool on);
void SetCanvasSize(int width, int height);
void SetAskedSize(int cols, int rows);
void SetDarkBackground(bool dark);
