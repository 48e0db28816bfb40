// The size of the terminal and of the window around it. Interface thread.
#pragma once

#include <QString>

// Geometry of the main window, stored in the settings.
struct MainWindowPlace {
    int x = 200, y = 200;            // of the frame
    int width = 900, height = 700;   // of the inner area
    QString linesToShow = "111111";  // one character for each toolbar row, "1" for shown
    int contentTop = 25;             // y at which the canvas begins
};
extern const MainWindowPlace& mainWindowPlace;
MainWindowPlace& MainWindowPlaceForTable();  // for the settings table alone
void SetLinesToShow(const QString& marks);
void SetContentTop(int y);

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
// Start of the terminal: fonts, canvas size, `rows` lines, ClearTerminal.
void SetUpTerminal();

// 1 if the size changed, 0 if not. A value of 0 or less leaves its side as it is; one
// beyond the bounds of TerminalScreen.h is cut to them.
int SetTerminalSize(int cols, int rows);
// ClearTerminal, ShowTerminalSize, resize of the window, LayoutMainWindow.
void ApplyTerminalSize();
// SetTerminalSize and ApplyTerminalSize for a size that the device asks for. During a feed
// the window itself follows at the feed's end, by FinishRemoteResize, so that a flood of
// such requests lays it out once.
void RemoteResize(int cols, int rows);
void FinishRemoteResize();
// The window's part of a resize: the size text, the window's own size, and the places of
// all that lies in it. Paints nothing in the terminal.
void FitMainWindow();
// TerminalRepaint, on a picture that has the terminal's size from then on.
void RepaintAtFullSize();
void ShowTerminalSize();
QString TerminalSizeText();
void AskTerminalSize();
void RestoreDefaultTerminalSize();
// The font dialog and what follows on acceptance.
void AskTerminalFont();
// Places rows, canvases and scroll bar, repaints, gives the terminal the focus.
void LayoutMainWindow();
// Menu item 9: the other scheme.
void SwitchDarkBackground();
// Default colours from darkBackground, made current.
void SetSchemeColours();
