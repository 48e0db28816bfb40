#include "terminal/screen/WindowLayout.h"

#include "base/Numbers.h"
#include "base/TextRules.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSettings.h"
#include "terminal/screen/TerminalSizing.h"
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

void PlaceToolbarRows() {
    place.contentTop = kTop;
    for (int i = 0; i < kToolbarRows; ++i) {
        const int row = kFirstToolbarRow + i;
        const bool shown = TextToInteger(place.linesToShow.mid(i, 1)) != 0;
        if (shown) {
            ResizeGadget(row, kLeft, place.contentTop, kRowWidth, kRowHeight);
            place.contentTop += kRowHeight;
        }
        HideGadget(row, !shown);
    }
}

void PlaceTerminal() {
    const int width = terminalSettings.canvasWidth;
    const int height = terminalSettings.canvasHeight;
    ResizeGadget(kFrameCanvas, kLeft, place.contentTop, width + 2 * kTerminalFrameWidth,
                 height + 2 * kTerminalFrameWidth);
    ResizeGadget(kTerminalCanvas, kTerminalFrameWidth, kTerminalFrameWidth, width, height);
    ResizeGadget(kTerminalScrollBar, width + kScrollBarLeft, place.contentTop, kScrollBarWidth,
                 height);
}

void PlaceAll() {
    TakeWindowPlace();
    PlaceToolbarRows();
    PlaceTerminal();
}

void GiveTerminalFocus() {
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

void SetContentTop(int y) {
    place.contentTop = y;
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

void LayoutMainWindow() {
    PlaceAll();
    RepaintAtFullSize();
    GiveTerminalFocus();
}

void FitMainWindow() {
    ShowTerminalSize();
    ResizeNumberedWindow(kMainWindow, kKeep, kKeep,
                         terminalSettings.canvasWidth + kWindowBeyondCanvas,
                         terminalSettings.canvasHeight + place.contentTop + kWindowBelowCanvas);
    PlaceAll();
    GiveTerminalFocus();
}
