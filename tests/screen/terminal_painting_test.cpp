// What the terminal paints, in pixels, and the list of lines.
#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "terminal/screen/TerminalSizing.h"
#include "terminal/screen/WindowLayout.h"
#include "tests/screen/ScreenRig.h"

namespace {

struct FontSettings {
    int size = 9;
    int extraWidth = 1, extraHeight = 1;
};

// A picture painted beside the terminal by the toolkit's own calls.
class Sheet {
  public:
    Sheet(int cols, int rows, const FontSettings& settings) {
        for (const bool isBold : {false, true}) {
            fonts[isBold] = QFont("Liberation Mono", settings.size);
            fonts[isBold].setBold(isBold);
        }
        const QFontMetrics metrics(fonts[false]);
        width = metrics.horizontalAdvance("W") + settings.extraWidth;
        height = metrics.height() + settings.extraHeight;
        picture = QImage(cols * width + 4, rows * height + 4, QImage::Format_RGB32);
        picture.fill(Qt::white);
    }

    int X(int column) const { return (column - 1) * width + 2; }
    int Y(int row) const { return (row - 1) * height + 2; }
    void Box(int x, int y, int w, int h, const QColor& colour) {
        QPainter(&picture).fillRect(x, y, w, h, colour);
    }
    // Cells from a column on: box, glyph box, ink. A "_" has no glyph.
    void Cells(int column, int y, const QString& text, QColor ink, QColor paper, int boxWidth,
               bool bold = false) {
        const QFontMetrics metrics(fonts[bold]);
        for (const QChar c : text) {
            const int x = X(column++);
            Box(x, y, boxWidth, height, paper);
            if (c == '_') continue;
            QPainter painter(&picture);
            const QRect box(x, y, metrics.horizontalAdvance(c), metrics.height());
            painter.fillRect(box, paper);
            painter.setFont(fonts[bold]);
            painter.setPen(ink);
            painter.drawText(x, y + metrics.ascent(), c);
        }
    }
    void Move(int top, int rows, int target) {
        const int held = std::min(rows, picture.height() - top);
        const QImage strip = picture.copy(0, top, picture.width(), held);
        picture.fill(Qt::white);
        QPainter(&picture).drawImage(0, target, strip);
    }

    QImage picture;
    int width, height;  // of a cell

  private:
    QFont fonts[2];
};

const QColor kBlack = Qt::black, kWhite = Qt::white, kRed(0xCD, 0, 0);

// The light scheme, so that a cell that nothing wrote shows.
class TerminalPainting : public testing::Test {
  protected:
    TerminalPainting() { OpenScreenRig(); }

    static void Open(int cols, int rows, const FontSettings& font) {
        TerminalSettings& settings = TerminalSettingsForTable();
        settings.cols = cols;
        settings.rows = rows;
        settings.fontSize = font.size;
        settings.extraCharPixels = font.extraWidth;
        settings.extraLinePixels = font.extraHeight;
        settings.darkBackground = false;
        SetUpTerminal();
        // The cursor still knows where it stood in another test.
        Feed("\x1b[0m \x1b[1;1H");
        NotifyCursorBlink();
        LayoutMainWindow();
    }
};

// Writing, erasing and the cursor stand two pixels below the top of a row. The third font is
// plain. The cursor leaves the background as it was stored, which an inverse cell does not show.
TEST_F(TerminalPainting, AWrittenRow) {
    for (const FontSettings& font : {FontSettings{}, FontSettings{13, 4, -2}}) {
        Open(12, 4, font);
        Sheet sheet(12, 4, font);
        const int w = sheet.width, h = sheet.height, box = w + 1;
        Feed("\x1b[2;3HWa\x1b[1mWb\x1b[4mWg\x1b[7mgh\x1b[0m\x1b[31mij\x1b[3;11Hxyz!\x1b[0m");
        sheet.Cells(3, sheet.Y(2), "Wa", kBlack, kWhite, box);
        sheet.Cells(5, sheet.Y(2), "Wb", kBlack, kWhite, box, true);
        sheet.Cells(7, sheet.Y(2), "Wg", kBlack, kWhite, box);
        sheet.Cells(9, sheet.Y(2), "gh", kWhite, kBlack, box);
        sheet.Cells(11, sheet.Y(2), "ij", kRed, kWhite, box);
        for (const char c : {'y', 'z', '!'}) {
            sheet.Cells(11, sheet.Y(3), "x", kRed, kWhite, box);
            sheet.Cells(12, sheet.Y(3), QString(c), kRed, kWhite, box);
        }
        EXPECT_EQ(TerminalPicture(), sheet.picture);
        Feed("\x1b[2;5H\x1b[1K\x1b[3;12H\x1b[K");
        sheet.Box(0, sheet.Y(2), 4 * w, h, kWhite);
        sheet.Box(sheet.X(12), sheet.Y(3), w + 2, h, kWhite);
        EXPECT_EQ(TerminalPicture(), sheet.picture);
        Feed("\x1b[2;9H");
        sheet.Box(sheet.X(9), sheet.Y(2) + h - 2, w, 2, kWhite);
        NotifyCursorBlink();
        if (TerminalPicture() == sheet.picture) NotifyCursorBlink();
        sheet.Box(sheet.X(9), sheet.Y(2) + h - 2, w, 2, kBlack);
        EXPECT_EQ(TerminalPicture(), sheet.picture);
        Feed("\x1b[2;7H");
        NotifyCursorBlink();
        sheet.Box(sheet.X(9), sheet.Y(2) + h - 2, w, 2, kWhite);
        sheet.Box(sheet.X(7), sheet.Y(2) + h - 2, w, 2, kWhite);
        EXPECT_EQ(TerminalPicture(), sheet.picture);
    }
}

// The picture moves, and the rows that are drawn anew stand at the top of theirs, up to the
// cell that nothing wrote, whose background is black. The two upper pixel rows never move.
TEST_F(TerminalPainting, AScrolledView) {
    Open(8, 3, {});
    Sheet sheet(8, 3, {});
    const int h = sheet.height, all = sheet.picture.height();
    const char* const lines[] = {"one", "t", "end"};
    for (int row = 1; row <= 3; ++row) {
        Feed("\x1b[" + std::to_string(row) + ";1H" + lines[row - 1]);
        sheet.Cells(1, sheet.Y(row), lines[row - 1], kBlack, kWhite, sheet.width + 1);
    }
    const auto redraw = [&](int row, const QString& text) {
        sheet.Cells(1, sheet.Y(row) - 2, text, kBlack, kWhite, sheet.width + 1);
        sheet.Cells(1 + text.size(), sheet.Y(row) - 2, "_", kBlack, kBlack, sheet.width + 1);
    };
    Feed("\n");
    sheet.Move(h + 2, all - h - 1, 2);
    redraw(2, "end");
    EXPECT_EQ(TerminalPicture(), sheet.picture);
    TerminalScrollDown(1);
    sheet.Move(2, all - h, 2 + h);
    for (int row = 1; row <= 3; ++row) redraw(row, lines[row - 1]);
    sheet.Box(0, 0, sheet.picture.width(), 2, kWhite);
    EXPECT_EQ(TerminalPicture(), sheet.picture);
}

// Only inverse cells have a box of their own, and not the pixel beyond their width. A colour
// in force is lost.
TEST_F(TerminalPainting, ARepaintedView) {
    Open(12, 2, {});
    Sheet sheet(12, 2, {});
    Feed("\x1b[2;1Hab\x1b[7mcd\x1b[0m\x1b[1mef\x1b[0m\x1b[31mgh");
    TerminalRepaint();
    Feed("i");
    const int y = sheet.Y(2) - 2;
    sheet.Cells(1, y, "ab", kBlack, kWhite, 0);
    sheet.Cells(3, y, "cd", kWhite, kBlack, sheet.width);
    sheet.Cells(5, y, "ef", kBlack, kWhite, 0, true);
    sheet.Cells(7, y, "gh", kRed, kWhite, 0);
    sheet.Cells(9, sheet.Y(2), "i", kBlack, kWhite, sheet.width + 1);
    EXPECT_EQ(TerminalPicture(), sheet.picture);
}

// Used again, a line is empty, beyond the last column too.
TEST_F(TerminalPainting, TheLatestLinesAreKept) {
    const auto contents = [](int element) {
        std::string text;
        for (const TerminalCell& cell : TerminalLineAt(element)->cells)
            if (cell.ch || cell.fg || cell.bg || cell.attr) text += static_cast<char>(cell.ch);
        return text;
    };
    Open(20, 5, {});
    SetScrollBackLimits(100, 256);
    SetCurrentColours(0xFF, 0xFF00);
    for (int i = 0; i < 1000; ++i) {
        if (i == 800) SetScrollBackLimits(300, 256);
        MoveTerminalCursor(i % 3 ? 1 : 25 + i % 50, terminalScreen.cursorY);
        TerminalPrintLine(QString::number(i));
    }
    ASSERT_EQ(TerminalLineCount(), 306);
    for (int element = 0; element < 305; ++element) {
        const std::string n = std::to_string(element + 695);
        EXPECT_EQ(contents(element), (element + 695) % 3 ? n : n.substr(2) + n[0]);
    }
    EXPECT_EQ(contents(305), "");
    EXPECT_FALSE(TerminalLineAt(-1) || TerminalLineAt(306));
    EXPECT_EQ(terminalScreen.topLine + terminalScreen.topLimit, 600);
}

}  // namespace
