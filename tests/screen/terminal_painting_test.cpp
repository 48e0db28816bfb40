// What the terminal paints, in pixels.
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
        fonts[0] = fonts[1] = QFont("Liberation Mono", size);
        fonts[1].setBold(true);
        width = QFontMetrics(fonts[0]).horizontalAdvance("W") + extraWidth;
        height = QFontMetrics(fonts[0]).height() + extraHeight;
        sheet = TerminalPicture();
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
        for (const QChar c : text) {
            Box(X(column), y, boxWidth, height, paper);
            QPainter painter(&sheet);
            if (c != '_') DrawGlyph(&painter, X(column), y, fonts[bold], ink, paper, c);
            ++column;
        }
    }
    // The rows from `top` on stand at `target`, all others are empty.
    void Move(int top, int rows, int target) {
        const QImage before = sheet;
        sheet.fill(Qt::white);
        const QRect strip(0, top, sheet.width(), rows);
        QPainter(&sheet).drawImage(QPoint(0, target), before, strip);
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
    static bool accepted;
    accepted = false;
    DialogAnswers answers;
    answers.font = [](const QString& name, int size) {
        EXPECT_EQ(name + QString::number(size), "Liberation Mono9");
        return FontChoice{accepted, "Liberation Mono", 13};
    };
    AnswerDialogs(&answers);
    AskTerminalFont();
    accepted = true;
    TerminalSettingsForTable().extraCharPixels = 4;
    TerminalSettingsForTable().extraLinePixels = -2;
    AskTerminalFont();
    StartSheet(13, 4, -2);
    const int box = width + 1;
    const auto bar = [&](int column, const QColor& colour) {
        Box(X(column), Y(2) + height - 2, width, 2, colour);
    };
    Feed("\x1b[2;3HWa\x1b[1mWb\x1b[4mWg\x1b[7mgh\x1b[0m\x1b[31mij\x1b[3;11Hxyz!\x1b[0m");
    Cells(3, Y(2), "Wa", kBlack, kWhite, box);
    Cells(5, Y(2), "Wb", kBlack, kWhite, box, true);
    Cells(7, Y(2), "Wg", kBlack, kWhite, box);
    Cells(9, Y(2), "gh", kWhite, kBlack, box);
    Cells(11, Y(2), "ij", kRed, kWhite, box);
    Cells(11, Y(3), "xy", kRed, kWhite, box);
    for (const char c : {'z', '!'}) Cells(12, Y(3), QString(c), kRed, kWhite, box);
    EXPECT_EQ(TerminalPicture(), sheet);
    Feed("\x1b[2;5H\x1b[1K\x1b[3;12H\x1b[K");
    Box(0, Y(2), 4 * width, height, kWhite);
    Box(X(12), Y(3), width + 2, height, kWhite);
    EXPECT_EQ(TerminalPicture(), sheet);
    Feed("\x1b[2;9H");
    bar(9, kWhite);
    NotifyCursorBlink();
    if (TerminalPicture() == sheet) NotifyCursorBlink();
    bar(9, kBlack);
    EXPECT_EQ(TerminalPicture(), sheet);
    Feed("\x1b[2;7H\x1b[?25l");  // goes out, and comes no more while it is off
    for (int i = 0; i < 3; ++i) NotifyCursorBlink();
    for (const int column : {7, 9}) bar(column, kWhite);
    EXPECT_EQ(TerminalPicture(), sheet);
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

}  // namespace
