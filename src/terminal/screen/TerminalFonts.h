// The terminal's three fonts, the cell they make, and the canvas that the cells fill.
// Interface thread.
#pragma once

// Cell size in pixels, and the three fonts' numbers; 0 and -1 before the fonts load.
struct TerminalMetrics {
    int charWidth = 0;
    int charHeight = 0;
    int normalFont = -1;
    int boldFont = -1;
    int thirdFont = -1;
};
extern const TerminalMetrics& terminalMetrics;

// Of the frame canvas around the terminal canvas, on each side, in pixels.
constexpr int kTerminalFrameWidth = 5;
// Cells of a strange font or setting are held to this many pixels each way.
constexpr int kLargestCell = 1024;

// Measures the cell in the normal font and computes the canvas size from it.
void MeasureTerminal();
// Loads the three terminal fonts from the settings, freeing those loaded before,
// measures the cell and computes the canvas size.
void LoadTerminalFonts();
