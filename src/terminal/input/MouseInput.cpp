// Mouse reports and the wheel.
#include <algorithm>
#include <climits>
#include <cstdint>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/TerminalFonts.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalScreen.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/gadgets/Gadgets.h"

namespace {

// X10 mouse reports give a place, counted from 1, as the character 32 above it.
constexpr int64_t kReportOffset = 32;
constexpr int64_t kFirstPlace = kReportOffset + 1;

// The character of the cell that holds `pixel`. With the usual shift a click in most of
// the first cell comes out as the cell before it and is raised to the first, which most
// of the second cell gives by itself: the first two cells report alike, as required.
QChar ReportedPlace(int pixel, int shift, int cellSize) {
    const int64_t cell = (int64_t{pixel} + shift) / std::max(cellSize, 1);
    const int64_t place = std::clamp<int64_t>(cell + kReportOffset, kFirstPlace, USHRT_MAX);
    return QChar(static_cast<ushort>(place));
}

void SendWheelArrows(int64_t steps) {
    if (inputSettings.mouseScrollRate < 0) steps = -steps;
    const QString arrow = steps < 0 ? "\x1b[B" : "\x1b[A";
    const int64_t count = std::min<int64_t>(steps < 0 ? -steps : steps, kMostWheelArrows);
    SendText(arrow.repeated(static_cast<int>(count)));
}

void ScrollByWheel(int64_t steps) {
    const int64_t position = GadgetState(kTerminalScrollBar);
    const int64_t limit = terminalScreen.scrollBack;
    // One step decides, not the rate, and 0 is out of its reach: from position 1 the
    // wheel does not move the view; the bar can be dragged there.
    if (position - steps <= 0 || position - steps >= limit) return;
    const int64_t target = std::min(position - steps * inputSettings.mouseScrollRate, limit);
    SetGadgetState(kTerminalScrollBar, static_cast<int>(std::max<int64_t>(target, 0)));
    ScrollBarChanged();
}

}  // namespace

QString MouseReport(int x, int y) {
    QString report = "\x1b[M ";  // the blank stands for the left button, pressed
    report += ReportedPlace(x, inputSettings.clickXShift, terminalMetrics.charWidth);
    report += ReportedPlace(y, inputSettings.clickYShift, terminalMetrics.charHeight);
    return report;
}

void SendMouseReport() {
    SendText(MouseReport(EventAttribute(kTerminalCanvas, kAttributeMouseX),
                         EventAttribute(kTerminalCanvas, kAttributeMouseY)));
}

void MouseWheelHandler() {
    const int64_t steps = EventAttribute(kTerminalCanvas, kAttributeWheel);
    // Exactly 1: with any other value the device's reports of clicks go on, and the wheel
    // stays with the scrollback.
    if (mouseMode == 1) {
        SendWheelArrows(steps);
    } else {
        ScrollByWheel(steps);
    }
}
