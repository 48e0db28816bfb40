// A main window with what the terminal needs: the two canvases, the scroll bar, the
// toolbar rows and the size text. For tests, benchmarks and fuzz targets.
#pragma once

#include "terminal/screen/TerminalPainters.h"
#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/TerminalText.h"
#include "tests/support/Gestures.h"
#include "tests/support/StartState.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/drawing/PBCanvasWidget.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/gadgets/ScrollBarGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/FileDialogs.h"

// Opens the window and sets the terminal up from the settings, which take the size.
inline void OpenScreenRig(int cols = 101, int rows = 50) {
    TerminalSettings& settings = TerminalSettingsForTable();
    settings.cols = settings.defaultCols = cols;
    settings.rows = settings.defaultRows = rows;
    OpenNumberedWindow(kMainWindow, 10, 10, 900, 700, "Rig", kStandardWindowFlags);
    for (int row = 0; row < kToolbarRows; ++row) {
        ContainerGadget(kFirstToolbarRow + row, 0, 0, 9, 9);
        if (row + 1 == kToolbarRows) TextGadget(kTerminalSizeText, 5, 1, 250, 20, "");
        CloseGadgetList();
    }
    CanvasGadget(kFrameCanvas, 0, 0, 9, 9, kCanvasFrame + kCanvasContainer);
    CanvasGadget(kTerminalCanvas, 0, 0, 9, 9, kCanvasKeyboard);
    CloseGadgetList();
    SetUpTerminal();
    ScrollBarGadget(kTerminalScrollBar, 0, 0, 9, 9, 0, terminalScreen.scrollBack, 40,
                    ScrollDirection::kVertical);
    LayoutMainWindow();
    ApplyTerminalSize();
    SetPendingColours(terminalScreen.defaultFg, terminalScreen.defaultBg);
}

// Bytes, one character each, through the parser.
inline void Feed(const std::string& bytes) {
    TerminalFeed(QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size())));
}

// The terminal canvas's picture, all pixels made.
inline QImage TerminalPicture() {
    return CanvasPicture(kTerminalCanvas);
}

inline QRect PlaceOf(int gadget) {
    return {GadgetX(gadget), GadgetY(gadget), GadgetWidth(gadget), GadgetHeight(gadget)};
}

inline std::string PairText(const char* name, int a, const char* between, int b) {
    return name + std::to_string(a) + between + std::to_string(b);
}

// Whether the window and what stands in it fit the terminal's size.
inline bool WindowFits() {
    const int width = terminalScreen.cols * terminalMetrics.charWidth + 4;
    const int height = terminalScreen.rows * terminalMetrics.charHeight + 4;
    const int top = mainWindowPlace.contentTop;
    return PlaceOf(kTerminalCanvas) == QRect(5, 5, width, height) &&
           PlaceOf(kFrameCanvas) == QRect(5, top, width + 10, height + 10) &&
           CanvasPicture(kFrameCanvas).size() == QSize(width + 10, height + 10) &&
           PlaceOf(kTerminalScrollBar) == QRect(width + 17, top, 18, height) &&
           WindowWidth(kMainWindow, WindowMeasure::kInner) == width + 40 &&
           WindowHeight(kMainWindow, WindowMeasure::kInner) == height + top + 35 &&
           GadgetText(kTerminalSizeText).toStdString() ==
               PairText("", terminalScreen.cols, " x ", terminalScreen.rows) +
                   PairText(" char, ", width, " x ", height) + " pixels";
}

inline std::string PenText(uint32_t foreground, uint32_t background) {
    return QString(" %1 %2").arg(foreground, 0, 16).arg(background, 0, 16).toStdString();
}

// Attribute, ink and paper of the next character.
inline std::string Pen() {
    return std::to_string(terminalScreen.textAttr) +
           PenText(terminalScreen.curFg, terminalScreen.curBg);
}

// The shown rows without empty ones at the end, "." for an empty cell, the cursor, and what is
// not as in an empty terminal of the dark scheme and the default size: "A..B.|C. 2,2 hidden".
inline std::string State() {
    const TerminalScreen& screen = terminalScreen;
    const TerminalSettings& settings = terminalSettings;
    std::string all;
    for (int row = 1; row <= screen.rows; ++row) {
        const TerminalLine* line = TerminalLineAt(screen.topLine + row);
        for (int column = 1; line && column <= line->length; ++column)
            all += line->cells[column].ch ? static_cast<char>(line->cells[column].ch) : '.';
        all += '|';
    }
    all.resize(all.find_last_not_of('|') + 1);
    all += PairText(" ", screen.cursorX, ",", screen.cursorY);
    if (screen.cols != settings.defaultCols || screen.rows != settings.defaultRows)
        all += PairText(" size ", screen.cols, "x", screen.rows);
    if (screen.cols != settings.cols || screen.rows != settings.rows)
        all += PairText(" next time ", settings.cols, "x", settings.rows);
    if (screen.topLimit) all += PairText(" view ", screen.topLine, "/", screen.topLimit);
    const int bar = GadgetState(kTerminalScrollBar);
    if (bar != screen.topLine) all += " bar " + std::to_string(bar);
    if (Pen() != "0 ffffff 0") all += " pen " + Pen();
    const std::string pending = PenText(screen.pendFg, screen.pendBg);
    if (pending != Pen().substr(1)) all += " pending" + pending;
    if (!screen.cursorVisible) all += " hidden";
    if (mouseMode) all += " mouse " + std::to_string(mouseMode);
    const std::string reply = TakeReplyText().toStdString();
    if (!reply.empty())
        all += " reply " + reply.substr(1) + " by " + std::to_string(QueuedEventCount());
    if (TerminalLineCount() != screen.rows + 1 + screen.topLimit) all += " lines are missing";
    return WindowFits() ? all : all + " does not fit";
}
