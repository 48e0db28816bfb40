// A main window with what the terminal needs: the two canvases, the scroll bar, the
// toolbar rows and the size text. For tests, benchmarks and fuzz targets.
#pragma once

#include <QPainter>

#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/TerminalText.h"
#include "tests/support/Gestures.h"
#include "tests/support/StartState.h"
#include "ui/drawing/CanvasEventData.h"
#include "ui/drawing/Drawing.h"
#include "ui/drawing/PBCanvasWidget.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/gadgets/ScrollBarGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/Clipboard.h"
#include "ui/windows/Dialogs.h"
#include "ui/windows/FileDialogs.h"

// Opens the window and sets the terminal up from the settings, which take the size.
inline void OpenScreenRig(int cols = 101, int rows = 50) {
    SetAskedSize(cols, rows);
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
}

// Bytes, one character each, through the parser.
inline void Feed(const std::string& bytes) {
    TerminalFeed(QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size())));
}

// The characters of a screen row, 1 to rows, up to its length; "." for an empty cell.
inline std::string RowText(int row) {
    std::string text;
    const TerminalLine* line = TerminalLineAt(terminalScreen.topLine + row);
    for (int column = 1; line && column <= line->length; ++column) {
        const char16_t c = line->cells[column].ch;
        text += c ? static_cast<char>(c) : '.';
    }
    return text;
}

// The shown rows without empty ones at the end, and the cursor: "AB.|CD. 3,2".
inline std::string ScreenText() {
    std::string rows = RowText(1);
    for (int row = 2; row <= terminalScreen.rows; ++row) rows += "|" + RowText(row);
    return rows.substr(0, rows.find_last_not_of('|') + 1) + " " +
           std::to_string(terminalScreen.cursorX) + "," + std::to_string(terminalScreen.cursorY);
}

// The terminal canvas's picture, all pixels made.
inline QImage TerminalPicture() {
    return CanvasPicture(kTerminalCanvas);
}

// A glyph on its box, as the toolkit has it.
inline void DrawGlyph(QPainter* painter, int x, int y, const QFont& font, QColor ink, QColor paper,
                      QChar c) {
    const QFontMetrics metrics(font);
    painter->fillRect(x, y, metrics.horizontalAdvance(c), metrics.height(), paper);
    painter->setFont(font);
    painter->setPen(ink);
    painter->drawText(x, y + metrics.ascent(), QString(c));
}
