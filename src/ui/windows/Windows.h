// Numbered windows. A call with an unknown number does nothing and gives 0. All on
// the interface thread.
#pragma once

#include <QString>

// The largest inner area, in pixels: beyond any screen, and a picture that memory holds. A
// larger size, and a place beyond the display server's 16 bits, is held to the bound.
constexpr int kLargestWindowWidth = 8192;
constexpr int kLargestWindowHeight = 4400;
constexpr int kFurthestPlace = 32767;

enum class WindowMeasure {
    kFrame = 0,  // the outer frame, as the window manager draws it
    kInner = 1,  // the client area, below the menu bar
};

// Opens (or replaces) a numbered window; `flags` are those of base/Numbers.h. x and y
// place the frame, width and height size the inner area. A window without "sizable"
// or "maximize" is fixed to its size. With kWindowCentredOnParent the position is
// ignored and the window stands centred over `parentWindow`. A gadget list for the
// window is opened: gadgets created next lie in it. It comes to the screen when the
// program next waits or sleeps.
bool OpenNumberedWindow(int window, int x, int y, int width, int height, const QString& title,
                        int flags, int parentWindow = -1);

// Closes a window with its gadgets, timers and shortcuts; -1 closes all.
void CloseNumberedWindow(int window);

bool WindowIsOpen(int window);
void ActivateNumberedWindow(int window);
void SetWindowTitle(int window, const QString& title);
QString WindowTitle(int window);

int WindowX(int window, WindowMeasure measure);
int WindowY(int window, WindowMeasure measure);
int WindowWidth(int window, WindowMeasure measure);
int WindowHeight(int window, WindowMeasure measure);

// Moves and sizes a window; kKeep leaves a value as it is. Width and height are those
// of the inner area.
void ResizeNumberedWindow(int window, int x, int y, int width, int height);

// Brings opened windows to the screen. That waits until the program next waits, sleeps or
// asks: a window gets its menu bar and gadgets first, and its frame is placed once, at the
// size that it is to have.
void ShowNewWindows();

// Shows what is dirty in every open window at once.
void PaintAllWindows();
