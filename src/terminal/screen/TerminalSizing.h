// The size of the terminal and of the window around it. Interface thread.
#pragma once

#include <QString>

// Geometry of the main window, stored in the settings.
struct MainWindowPlace {
    int x = 200, y = 200;             // of the frame
    int width = 900, height = 700;    // of the inner area
    QString linesToShow = "111111";   // one character for each toolbar row, "1" for shown
    int contentTop = 25;              // y at which the canvas begins
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

// Loads the three terminal fonts from the settings, freeing those loaded before,
// measures the cell and computes the canvas size.
void LoadTerminalFonts();
// Start of the terminal: fonts, canvas size, `rows` lines, ClearTerminal.
void SetUpTerminal();

// 1 if the size changed, 0 if not. Values are held inside the bounds of TerminalScreen.h.
int SetTerminalSize(int cols, int rows);
// ClearTerminal, ShowTerminalSize, resize of the window, LayoutMainWindow.
void ApplyTerminalSize();
// SetTerminalSize and ApplyTerminalSize for a size that the device asks for.
void RemoteResize(int cols, int rows);
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
