// What the terminal paints, in pixels, and the list of lines.

#include "tests/screen/ScreenRig.h"

namespace {

const QColor kBlack = Qt::black, kWhite = Qt::white, kRed(0xCD, 0, 0);

// The light scheme, so that a cell that nothing wrote shows; beside the terminal a picture
// painted by the toolkit's own calls.
class TerminalPainting : public testing::Test {
  protected:
    void Open(int cols, int rows) {
        SetDarkBackground(false);
        OpenScreenRig(cols, rows);
        StartSheet(9, 1, 1);
    }
    void StartSheet(int size, int extraWidth, int extraHeight) {
        // The cursor still knows where it stood before.
        Feed("\x1b[0m \x1b[1;1H");
        NotifyCursorBlink();
        LayoutMainWindow();
        for (const bool isBold : {false, true}) {
            fonts[isBold] = QFont("Liberation Mono", size);
            fonts[isBold].setBold(isBold);
        }
        const QFontMetrics metrics(fonts[false]);
        width = metrics.horizontalAdvance("W") + extraWidth;
        height = metrics.height() + extraHeight;
        sheet = QImage(terminalScreen.cols * width + 4, terminalScreen.rows * height + 4,
                       QImage::Format_RGB32);
        sheet.fill(Qt::white);
    }
    int X(int column) const { return (column - 1) * width + 2; }
    int Y(int row) const { return (row - 1) * height + 2; }
    void Box(int x, int y, int w, int h, const QColor& colour) {
        QPainter(&sheet).fillRect(x, y, w, h, colour);
    }
    // Cells from a column on: box, glyph box, ink. A "_" has no glyph.
    void Cells(int column, int y, const QString& text, QColor ink, QColor paper, int boxWidth,
               bool bold = false) {
        QPainter painter(&sheet);
        for (const QChar c : text) {
            painter.fillRect(X(column), y, boxWidth, height, paper);
            if (c != '_') DrawGlyph(&painter, X(column), y, fonts[bold], ink, paper, c);
            ++column;
        }
    }
    void Move(int top, int rows, int target) {
        const QImage strip =
            sheet.copy(0, top, sheet.width(), std::min(rows, sheet.height() - top));
        sheet.fill(Qt::white);
        QPainter(&sheet).drawImage(0, target, strip);
    }

    QImage sheet;
    QFont fonts[2];     // plain and bold
    int width, height;  // of a cell
};

// Writing, erasing and the cursor stand two pixels below the top of a row. The third font is
// plain, and all follow the user's choice. The cursor leaves the background as it was stored,
// which an inverse cell does not show.
TEST_F(TerminalPainting, AWrittenRowInTheFontsOfTheUsersChoice) {
    Open(12, 4);
    static FontChoice choice;
    choice = {false, "Liberation Mono", 13};
    DialogAnswers answers;
    answers.font = [](const QString& name, int size) {
        EXPECT_EQ(name + QString::number(size), "Liberation Mono9");
        return choice;
    };
    AnswerDialogs(&answers);
    AskTerminalFont();  // cancelled
    for (const bool chosen : {false, true}) {
        choice.accepted = chosen;
        if (chosen) {
            TerminalSettingsForTable().extraCharPixels = 4;
            TerminalSettingsForTable().extraLinePixels = -2;
            AskTerminalFont();
            StartSheet(13, 4, -2);
        }
        const int w = width, h = height, box = w + 1;
        Feed("\x1b[2;3HWa\x1b[1mWb\x1b[4mWg\x1b[7mgh\x1b[0m\x1b[31mij\x1b[3;11Hxyz!\x1b[0m");
        Cells(3, Y(2), "Wa", kBlack, kWhite, box);
        Cells(5, Y(2), "Wb", kBlack, kWhite, box, true);
        Cells(7, Y(2), "Wg", kBlack, kWhite, box);
        Cells(9, Y(2), "gh", kWhite, kBlack, box);
        Cells(11, Y(2), "ij", kRed, kWhite, box);
        for (const char c : {'y', 'z', '!'}) {
            Cells(11, Y(3), "x", kRed, kWhite, box);
            Cells(12, Y(3), QString(c), kRed, kWhite, box);
        }
        EXPECT_EQ(TerminalPicture(), sheet);
        Feed("\x1b[2;5H\x1b[1K\x1b[3;12H\x1b[K");
        Box(0, Y(2), 4 * w, h, kWhite);
        Box(X(12), Y(3), w + 2, h, kWhite);
        EXPECT_EQ(TerminalPicture(), sheet);
        Feed("\x1b[2;9H");
        Box(X(9), Y(2) + h - 2, w, 2, kWhite);
        NotifyCursorBlink();
        if (TerminalPicture() == sheet) NotifyCursorBlink();
        Box(X(9), Y(2) + h - 2, w, 2, kBlack);
        EXPECT_EQ(TerminalPicture(), sheet);
        Feed("\x1b[2;7H\x1b[?25l");  // goes out, and comes no more while it is off
        for (int i = 0; i < 3; ++i) NotifyCursorBlink();
        Box(X(9), Y(2) + h - 2, w, 2, kWhite);
        Box(X(7), Y(2) + h - 2, w, 2, kWhite);
        EXPECT_EQ(TerminalPicture(), sheet);
        Feed("\x1b[?25h");
    }
}

// The picture moves, and the rows that are drawn anew stand at the top of theirs, up to the
// cell that nothing wrote, whose background is black. The two upper pixel rows never move.
TEST_F(TerminalPainting, AScrolledView) {
    Open(8, 3);
    const int h = height, all = sheet.height();
    const char* const lines[] = {"one", "t", "end"};
    for (int row = 1; row <= 3; ++row) {
        Feed("\x1b[" + std::to_string(row) + ";1H" + lines[row - 1]);
        Cells(1, Y(row), lines[row - 1], kBlack, kWhite, width + 1);
    }
    const auto redraw = [&](int row, const QString& text) {
        Cells(1, Y(row) - 2, text, kBlack, kWhite, width + 1);
        Cells(1 + text.size(), Y(row) - 2, "_", kBlack, kBlack, width + 1);
    };
    Feed("\n");
    Move(h + 2, all - h - 1, 2);
    redraw(2, "end");
    EXPECT_EQ(TerminalPicture(), sheet);
    TerminalScrollDown(1);
    Move(2, all - h, 2 + h);
    for (int row = 1; row <= 3; ++row) redraw(row, lines[row - 1]);
    Box(0, 0, sheet.width(), 2, kWhite);
    EXPECT_EQ(TerminalPicture(), sheet);
}

// Only inverse cells have a box of their own, and not the pixel beyond their width. A colour
// in force is lost.
TEST_F(TerminalPainting, ARepaintedView) {
    Open(12, 2);
    Feed("\x1b[2;1Hab\x1b[7mcd\x1b[0m\x1b[1mef\x1b[0m\x1b[31mgh");
    TerminalRepaint();
    Feed("i");
    const int y = Y(2) - 2;
    Cells(1, y, "ab", kBlack, kWhite, 0);
    Cells(3, y, "cd", kWhite, kBlack, width);
    Cells(5, y, "ef", kBlack, kWhite, 0, true);
    Cells(7, y, "gh", kRed, kWhite, 0);
    Cells(9, Y(2), "i", kBlack, kWhite, width + 1);
    EXPECT_EQ(TerminalPicture(), sheet);
}

// Used again, a line is empty, beyond the last column too.
TEST_F(TerminalPainting, TheLatestLinesAreKept) {
    const auto contents = [](int element) {
        std::string text;
        for (const TerminalCell& cell : TerminalLineAt(element)->cells)
            if (cell.ch || cell.fg || cell.bg || cell.attr) text += static_cast<char>(cell.ch);
        return text;
    };
    Open(20, 5);
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
