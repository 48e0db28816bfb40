// What the terminal paints, in pixels.
#include "tests/screen/ScreenRig.h"

namespace {

constexpr uint32_t kBlack = 0, kWhite = 0xFFFFFF, kRed = 0xCD;
constexpr int16_t kPlain = 1, kBold = 2;

// The light scheme, so that a cell that nothing wrote shows; beside the terminal a sheet on
// which each call of the drawing layer is made by hand.
struct TerminalPainting : testing::Test {
    void Open(int cols, int rows) {
        SetDarkBackground(false);
        OpenScreenRig(cols, rows);
        StartSheet(9, 1, 1);
    }
    void StartSheet(int size, int extraWidth, int extraHeight) {
        LoadNumberedFont(kPlain, "Liberation Mono", size, kFontPlain);
        LoadNumberedFont(kBold, "Liberation Mono", size, kFontBold);
        width = TextWidthOf(kPlain, "W") + extraWidth;
        height = TextHeightOf(kPlain) + extraHeight;
        ResetPicture(&sheet, terminalScreen.cols * width + 4, terminalScreen.rows * height + 4);
    }
    int X(int column) const { return (column - 1) * width + 2; }
    int Y(int row) const { return (row - 1) * height + 2; }
    void Box(int x, int y, int w, int h, uint32_t colour) {
        RecordBox(&sheet, x, y, w, h, ImageColour(colour));
    }
    // Cells from a column on, each with a box of its own. A "_" has no glyph.
    void Cells(int column, int y, const char* text, uint32_t ink, uint32_t paper, int boxWidth,
               int16_t font = kPlain) {
        const std::u16string cells = QString(text).replace('_', QChar(0)).toStdU16String();
        RecordCells(&sheet, X(column), y,
                    {cells.data(), int(cells.size()), {ink, paper, font, true}},
                    {width, boxWidth, height});
    }
    bool SheetShows() { return TerminalPicture() == PictureOf(&sheet); }

    PaintRecord sheet;
    int width, height;  // of a cell
};

// Writing, erasing and the cursor stand two pixels below the top of a row. The third font is
// plain, and all follow the user's choice. The cursor leaves the background as it was stored,
// which an inverse cell does not show.
TEST_F(TerminalPainting, AWrittenRowInTheFontsOfTheUsersChoice) {
    TerminalSettingsForTable().fontName = "Liberation Sans";
    Open(12, 4);
    static bool accepted;
    accepted = false;
    DialogAnswers answers;
    answers.font = [](const QString& name, int size) {
        EXPECT_EQ(name + QString::number(size), "Liberation Sans9");
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
    const auto bar = [&](int column, uint32_t colour) {
        Box(X(column), Y(2) + height - 2, width, 2, colour);
    };
    Feed("\x1b[2;3HWa\x1b[1mWb\x1b[4mWg\x1b[7mgh\x1b[0m\x1b[31mij\x1b[3;11Hxyz!\x1b[0m");
    Cells(3, Y(2), "Wa", kBlack, kWhite, box);
    Cells(5, Y(2), "Wb", kBlack, kWhite, box, kBold);
    Cells(7, Y(2), "Wg", kBlack, kWhite, box);
    Cells(9, Y(2), "gh", kWhite, kBlack, box);
    Cells(11, Y(2), "ij", kRed, kWhite, box);
    Cells(11, Y(3), "xy", kRed, kWhite, box);
    for (const char* c : {"z", "!"}) Cells(12, Y(3), c, kRed, kWhite, box);
    EXPECT_TRUE(SheetShows());
    Feed("\x1b[2;5H\x1b[1K\x1b[3;12H\x1b[K");
    Box(0, Y(2), 4 * width, height, kWhite);
    Box(X(12), Y(3), width + 2, height, kWhite);
    Feed("\x1b[2;9H");
    bar(9, kWhite);
    NotifyCursorBlink();
    if (SheetShows()) NotifyCursorBlink();
    bar(9, kBlack);
    EXPECT_TRUE(SheetShows());
    Feed("\x1b[2;7H\x1b[?25l");  // goes out, and comes no more while it is off
    for (const int column : {7, 9}) bar(column, kWhite);
    for (int i = 0; i < 3; ++i) EXPECT_TRUE((NotifyCursorBlink(), SheetShows()));
}

// The picture moves, and the rows that are drawn anew stand at the top of theirs, up to the
// cell that nothing wrote, whose background is black. The two upper pixel rows never move.
TEST_F(TerminalPainting, AScrolledView) {
    Open(8, 3);
    const int h = height, all = 3 * h + 4;
    const char* const lines[] = {"one", "t", "end"};
    for (int row = 1; row <= 3; ++row) {
        Feed("\x1b[" + std::to_string(row) + ";1H" + lines[row - 1]);
        Cells(1, Y(row), lines[row - 1], kBlack, kWhite, width + 1);
    }
    const auto redraw = [&](int row, const char* text) {
        Cells(1, Y(row) - 2, text, kBlack, kWhite, width + 1);
        Cells(1 + int(strlen(text)), Y(row) - 2, "_", kBlack, kBlack, width + 1);
    };
    Feed("\n");
    RecordMove(&sheet, h + 2, all - h - 1, 2, ImageColour(kWhite));
    redraw(2, "end");
    EXPECT_TRUE(SheetShows());
    TerminalScrollDown(1);
    RecordMove(&sheet, 2, all - h, 2 + h, ImageColour(kWhite));
    for (int row = 1; row <= 3; ++row) redraw(row, lines[row - 1]);
    Box(0, 0, 8 * width + 4, 2, kWhite);
    EXPECT_TRUE(SheetShows());
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
    Cells(5, y, "ef", kBlack, kWhite, 0, kBold);
    Cells(7, y, "gh", kRed, kWhite, 0);
    Cells(9, Y(2), "i", kBlack, kWhite, width + 1);
    EXPECT_TRUE(SheetShows());
}

}  // namespace
