// Where the toolbar rows, the terminal and its scroll bar stand in the main window, and where
// that window stands. Interface thread.
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

// Where things stand, in pixels: the toolbar rows from the top, each call for the next one,
// and below them, at the canvas's present size, the frame, the terminal in it and the scroll
// bar.
struct GadgetPlace {
    int x, y, width, height;
};
void BeginToolbarRows();
GadgetPlace NextToolbarRow();
GadgetPlace FramePlace();
GadgetPlace TerminalPlace();
GadgetPlace ScrollBarPlace();

// The window's part of a resize: the size text, the window's own size, and the places of
// all that lies in it. Paints nothing in the terminal.
void FitMainWindow();
void ShowTerminalSize();
QString TerminalSizeText();
// TerminalRepaint, on a picture that has the terminal's size from then on.
void RepaintAtFullSize();
// Places rows, canvases and scroll bar, gives the terminal the focus, repaints.
void LayoutMainWindow();
