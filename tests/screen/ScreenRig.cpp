#include "tests/screen/ScreenRig.h"

#include <QFontMetrics>

#include "ui/gadgets/CanvasGadget.h"
#include "ui/gadgets/ContainerGadget.h"
#include "ui/gadgets/GadgetTable.h"
#include "ui/gadgets/ScrollBarGadget.h"
#include "ui/gadgets/TextGadget.h"

void OpenScreenRig(int cols, int rows) {
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

std::string ScreenText() {
    std::string rows = RowText(1);
    for (int row = 2; row <= terminalScreen.rows; ++row) rows += "|" + RowText(row);
    return rows.substr(0, rows.find_last_not_of('|') + 1);
}

QRect PlaceOf(int gadget) {
    return {GadgetX(gadget), GadgetY(gadget), GadgetWidth(gadget), GadgetHeight(gadget)};
}

QImage TerminalPicture() {
    return CanvasPicture(kTerminalCanvas);
}

void DrawGlyph(QPainter* painter, int x, int y, const QFont& font, QColor ink, QColor paper,
               QChar c) {
    const QFontMetrics metrics(font);
    painter->fillRect(x, y, metrics.horizontalAdvance(c), metrics.height(), paper);
    painter->setFont(font);
    painter->setPen(ink);
    painter->drawText(x, y + metrics.ascent(), QString(c));
}
