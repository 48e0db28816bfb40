// Sizes, the window around the terminal, the scroll bar, and what an emptied terminal keeps.
#include "terminal/screen/ColourScheme.h"
#include "tests/screen/ScreenRig.h"

namespace {

TEST(TerminalSizing, AsksForASize) {
    static QString answer, asked;
    DialogAnswers answers;
    answers.text = [](const QString& title, const QString& prompt, const QString& preset) {
        asked = title + "|" + prompt + "|" + preset;
        return answer;
    };
    AnswerDialogs(&answers);
    OpenScreenRig();
    const std::pair<const char*, const char*> rows[] = {
        {"80X24", "80x24"},   {"81 x 25", "81x25"}, {"82 26", "82x26"},   {"83 X  27", "83x27"},
        {"149x79", "149x79"}, {"150x79", "149x79"}, {"149x80", "149x79"}, {"10x6", "149x79"},
        {"11x5", "149x79"},   {"11 x 6", "11x6"},   {"", "11x6"},         {"80", "11x6"},
        {"60x20x9", "60x20"},
    };
    for (const auto& [typed, size] : rows) {
        answer = typed;
        AskTerminalSize();
        EXPECT_EQ(State(), std::string(" 1,1 size ") + size) << typed;
    }
    EXPECT_EQ(asked, "New size|Enter new terminal size W x H|11 x 6");
    Feed("text\n");
    answer = "60 x 20";  // the present size clears all the same
    AskTerminalSize();
    EXPECT_EQ(State(), " 1,1 size 60x20");
    RestoreDefaultTerminalSize();
    EXPECT_EQ(State(), " 1,1");
    EXPECT_EQ(TerminalPicture().pixel(1, 1), 0xFF000000);
    Feed("text\n");
    SwitchDarkBackground();
    EXPECT_EQ(State(), " 1,1 pen 0 0 ffffff pending ffffff 0");
}

TEST(TerminalSizing, StrangeSettingsAreHeld) {
    OpenScreenRig();
    TerminalSettings& settings = TerminalSettingsForTable();
    settings.cols = -7;
    settings.rows = 1 << 30;
    settings.scrollBack = -1;
    settings.fontSize = 1 << 30;
    settings.extraLinePixels = -(1 << 30);
    SetUpTerminal();
    EXPECT_EQ(PairText("", terminalMetrics.charHeight, " of ", TerminalLineCount()), "1 of 257");
}

TEST(TerminalSizing, LaysOutTheShownRowsAndGivesTheFocus) {
    OpenScreenRig();
    TextEntryGadget(kCommandEntry, 0, 0, 9, 9, "");
    for (int i = 0; i < 1000 && FocusedGadget() != kTerminalCanvas; ++i) WaitForEvent(1);
    FocusGadget(kCommandEntry);
    ResizeNumberedWindow(kMainWindow, 31, 32, 903, 704);
    PaintTerminalFrame(false);
    EXPECT_EQ(CanvasPicture(kFrameCanvas).pixel(2, 2), 0xFFF0F0F0);
    SetLinesToShow("10a2");
    LayoutMainWindow();
    const MainWindowPlace& place = mainWindowPlace;
    EXPECT_EQ(QRect(place.x, place.y, place.width, place.height), QRect(31, 32, 903, 704));
    EXPECT_EQ(FocusedGadget(), kTerminalCanvas);
    EXPECT_EQ(CanvasPicture(kFrameCanvas).pixel(2, 2), 0xFF7FC2FF);
    for (int row = 0; row < kToolbarRows; ++row)
        EXPECT_EQ(GadgetHidden(kFirstToolbarRow + row), row != 0 && row != 3) << row;
    EXPECT_EQ(PlaceOf(kFirstToolbarRow + 3), QRect(5, 30, 810, 25));
}

// The bar reaches 40 lines less than the scrollback, and nothing holds its lower part. An
// emptied terminal keeps where it stood, the attribute and the pending colours.
TEST(TerminalSizing, TheScrollBarMovesTheView) {
    TerminalSettingsForTable().scrollBack = 1000;
    OpenScreenRig(20, 3);
    const auto moved = [](int position) {
        SetGadgetState(kTerminalScrollBar, position);
        ScrollBarChanged();
        return State();
    };
    for (int i = 0; i < 100; ++i) TerminalPrintLine(QString::number(i));
    EXPECT_EQ(State(), "98.|99. 1,3 view 98/98");
    EXPECT_EQ(moved(20), "20.|21.|22. 1,3 view 20/98");
    Feed("here\n");  // lands on the rows on show and creates no line
    EXPECT_EQ(State(), "21.|here.|23. 1,3 view 21/98");
    EXPECT_EQ(moved(900), "98.|99. 1,3 view 98/98");
    Feed(std::string(2000, '\n'));
    EXPECT_EQ(State(), " 1,3 view 1000/1000 bar 960");
    EXPECT_EQ(moved(500), " 1,3 view 500/1000");
    Feed("\x1b[31m\x1b[1mA");
    ClearTerminal(kTerminalCanvas);
    EXPECT_EQ(State(), " 1,1 bar 500 pen 1 ffffff 0 pending cd 0");
}

}  // namespace
