#include "terminal/screen/WindowLayout.h"

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "ui/drawing/Drawing.h"
#include "ui/gadgets/Gadgets.h"
#include "ui/windows/Windows.h"

namespace {

// All in pixels.
constexpr int kLeft = 5;
constexpr int kTop = 5;
constexpr int kRowWidth = 810;
constexpr int kRowHeight = 25;
constexpr int kScrollBarLeft = 17;  // right of the canvas's width
constexpr int kScrollBarWidth = 18;
constexpr int kWindowBeyondCanvas = 40;  // in width
constexpr int kWindowBelowCanvas = 35;   // in height

MainWindowPlace place;

void TakeWindowPlace() {
    place.x = WindowX(kMainWindow, WindowMeasure::kFrame);
    place.y = WindowY(kMainWindow, WindowMeasure::kFrame);
    place.width = WindowWidth(kMainWindow, WindowMeasure::kInner);
    place.height = WindowHeight(kMainWindow, WindowMeasure::kInner);
}

void PlaceGadget(int gadget, const GadgetPlace& at) {
    ResizeGadget(gadget, at.x, at.y, at.width, at.height);
}

void PlaceToolbarRows() {
    BeginToolbarRows();
    for (int i = 0; i < kToolbarRows; ++i) {
        const bool shown = TextToInteger(place.linesToShow.mid(i, 1)) != 0;
        if (shown) PlaceGadget(kFirstToolbarRow + i, NextToolbarRow());
        HideGadget(kFirstToolbarRow + i, !shown);
    }
}

// Where the window stands is taken over, all that lies in it is placed, and the terminal gets
// the focus.
void PlaceAll() {
    TakeWindowPlace();
    PlaceToolbarRows();
    PlaceGadget(kFrameCanvas, FramePlace());
    PlaceGadget(kTerminalCanvas, TerminalPlace());
    PlaceGadget(kTerminalScrollBar, ScrollBarPlace());
    FocusGadget(kTerminalCanvas);
    PaintTerminalFrame(true);
}

}  // namespace

const MainWindowPlace& mainWindowPlace = place;

MainWindowPlace& MainWindowPlaceForTable() {
    return place;
}

void SetLinesToShow(const QString& marks) {
    place.linesToShow = marks;
}

void BeginToolbarRows() {
    place.contentTop = kTop;
}

GadgetPlace NextToolbarRow() {
    const int top = place.contentTop;
    place.contentTop += kRowHeight;
    return {kLeft, top, kRowWidth, kRowHeight};
}

GadgetPlace FramePlace() {
    return {kLeft, place.contentTop, terminalSettings.canvasWidth + 2 * kTerminalFrameWidth,
            terminalSettings.canvasHeight + 2 * kTerminalFrameWidth};
}

GadgetPlace TerminalPlace() {
    return {kTerminalFrameWidth, kTerminalFrameWidth, terminalSettings.canvasWidth,
            terminalSettings.canvasHeight};
}

GadgetPlace ScrollBarPlace() {
    return {terminalSettings.canvasWidth + kScrollBarLeft, place.contentTop, kScrollBarWidth,
            terminalSettings.canvasHeight};
}

QString TerminalSizeText() {
    return QString("%1 x %2 char, %3 x %4 pixels")
        .arg(terminalScreen.cols)
        .arg(terminalScreen.rows)
        .arg(terminalSettings.canvasWidth)
        .arg(terminalSettings.canvasHeight);
}

void ShowTerminalSize() {
    SetGadgetText(kTerminalSizeText, TerminalSizeText());
}

void RepaintAtFullSize() {
    ResetCanvasPicture(kTerminalCanvas, terminalSettings.canvasWidth,
                       terminalSettings.canvasHeight);
    TerminalRepaint();
}

void LayoutMainWindow() {
    PlaceAll();
    RepaintAtFullSize();
}

void FitMainWindow() {
    ShowTerminalSize();
    ResizeNumberedWindow(kMainWindow, kKeep, kKeep,
                         terminalSettings.canvasWidth + kWindowBeyondCanvas,
                         terminalSettings.canvasHeight + place.contentTop + kWindowBelowCanvas);
    PlaceAll();
}
