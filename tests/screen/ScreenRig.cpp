#include "tests/screen/ScreenRig.h"

#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/VtParser.h"
#include "terminal/screen/WindowLayout.h"
#include "ui/gadgets/CanvasGadget.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/ScrollBarGadget.h"
#include "ui/gadgets/TextGadget.h"
#include "ui/windows/Windows.h"

void OpenScreenRig() {
    constexpr int kPage = 40;
    OpenNumberedWindow(kMainWindow, 10, 10, 900, 700, "Rig", kStandardWindowFlags);
    for (int row = 0; row < kToolbarRows; ++row) {
        ContainerGadget(kFirstToolbarRow + row, 5, 5, 810, 25);
        if (row + 1 == kToolbarRows) TextGadget(kTerminalSizeText, 5, 1, 250, 20, "");
        CloseGadgetList();
    }
    const int width = terminalSettings.canvasWidth;
    const int height = terminalSettings.canvasHeight;
    CanvasGadget(kFrameCanvas, 5, 25, width + 10, height + 10, kCanvasFrame + kCanvasContainer);
    CanvasGadget(kTerminalCanvas, 5, 5, width, height, kCanvasKeyboard);
    CloseGadgetList();
    SetUpTerminal();
    ScrollBarGadget(kTerminalScrollBar, width + 17, 25, 18, height, 0, terminalScreen.scrollBack,
                    kPage, ScrollDirection::kVertical);
    LayoutMainWindow();
}

void Feed(const std::string& bytes) {
    TerminalFeed(QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size())));
}

std::string RowText(int row) {
    std::string text;
    const TerminalLine* line = TerminalLineAt(terminalScreen.topLine + row);
    for (int column = 1; line && column <= line->length; ++column) {
        const char16_t c = line->cells[column].ch;
        text += c ? static_cast<char>(c) : '.';
    }
    return text;
}

QImage TerminalPicture() {
    return CanvasPicture(kTerminalCanvas);
}
