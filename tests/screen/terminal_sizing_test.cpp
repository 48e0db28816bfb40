// Sizes, the window around the terminal, the scroll bar, what an emptied terminal keeps,
// and lines of other threads.
#include <thread>

#include "terminal/screen/ColourScheme.h"
#include "tests/screen/ScreenRig.h"

namespace {

QString answer, asked;

class TerminalSizing : public testing::Test {
  protected:
    TerminalSizing() {
        OpenScreenRig();
        answers.text = [](const QString& title, const QString& prompt, const QString& preset) {
            asked = title + "|" + prompt + "|" + preset;
            return answer;
        };
        AnswerDialogs(&answers);
    }
    DialogAnswers answers;
};

std::string SizeText(int cols, int rows, const char* between = "x") {
    return std::to_string(cols) + between + std::to_string(rows);
}

// What is in force, and what the settings ask for where that is something else.
std::string Size() {
    const std::string present = SizeText(terminalScreen.cols, terminalScreen.rows);
    const std::string kept = SizeText(terminalSettings.cols, terminalSettings.rows);
    return kept == present ? present : present + " for " + kept;
}

QRect PlaceOf(int gadget) {
    return {GadgetX(gadget), GadgetY(gadget), GadgetWidth(gadget), GadgetHeight(gadget)};
}

// What every change of size leaves: an empty terminal, and a window and pictures that fit.
void ExpectFitting() {
    const int width = terminalScreen.cols * terminalMetrics.charWidth + 4;
    const int height = terminalScreen.rows * terminalMetrics.charHeight + 4;
    const MainWindowPlace& place = mainWindowPlace;
    const int top = place.contentTop;
    EXPECT_EQ(TerminalPicture().size(), QSize(width, height));
    EXPECT_EQ(CanvasPicture(kFrameCanvas).size(), QSize(width + 10, height + 10));
    EXPECT_EQ(PlaceOf(kTerminalCanvas), QRect(5, 5, width, height));
    EXPECT_EQ(PlaceOf(kFrameCanvas), QRect(5, top, width + 10, height + 10));
    EXPECT_EQ(PlaceOf(kTerminalScrollBar), QRect(width + 17, top, 18, height));
    const QSize window(width + 40, height + top + 35);
    EXPECT_EQ(QSize(WindowWidth(kMainWindow, WindowMeasure::kInner),
                    WindowHeight(kMainWindow, WindowMeasure::kInner)),
              window);
    EXPECT_EQ(QSize(place.width, place.height), window);
    EXPECT_EQ(GadgetText(kTerminalSizeText).toStdString(),
              SizeText(terminalScreen.cols, terminalScreen.rows, " x ") + " char, " +
                  SizeText(width, height, " x ") + " pixels");
    EXPECT_EQ(TerminalLineCount(), terminalScreen.rows + 1);
    EXPECT_EQ(ScreenText(), " 1,1");
}

TEST_F(TerminalSizing, AsksForASize) {
    const std::pair<const char*, const char*> rows[] = {
        {"80X24", "80x24"},    {"81 x 25", "81x25"}, {"82 26", "82x26"},
        {"83 X  27", "83x27"}, {"149x79", "149x79"}, {"150x79", "149x79"},
        {"149x80", "149x79"},  {"10x6", "149x79"},   {"11x5", "149x79"},
        {"11 x 6", "11x6"},    {"", "11x6"},         {"80", "11x6"},
        {"axb", "11x6"},       {"60x20x9", "60x20"}, {"4294967376x24", "60x20"},
    };
    for (const auto& [typed, size] : rows) {
        answer = typed;
        AskTerminalSize();
        EXPECT_EQ(Size(), size) << typed;
    }
    EXPECT_EQ(asked, "New size|Enter new terminal size W x H|60 x 20");
    ExpectFitting();
    Feed("text\n");
    answer = "60 x 20";  // the present size clears all the same
    AskTerminalSize();
    ExpectFitting();
    TerminalSettingsForTable().defaultCols = 70;
    RestoreDefaultTerminalSize();
    EXPECT_EQ(Size(), "70x50");
    ExpectFitting();
}

TEST_F(TerminalSizing, TheDeviceResizesWithinBounds) {
    const std::pair<const char*, const char*> rows[] = {
        {"\x1b[8;24;80t", "80x24"},
        {"\x1b[8;9999999;9999999t", "256x256"},
        {"\x1b[1;30;40t", "40x30"},
        {"\x1b[t", "40x30"},  // what is absent stays
        {"\x1b[8;;50t", "50x30"},
        {"\x1b[8;1;1t", "1x1"},
        {"\x1b[8;20;60tx\x1b[8;21;61t\n", "61x21"},
    };
    for (const auto& [feed, size] : rows) {
        Feed("some text\n\n\n");
        Feed(feed);
        Feed("\x1b[H");
        EXPECT_EQ(Size(), size) << feed;
        ExpectFitting();
    }
    // What follows in the same read is written on the new canvas, colours and all.
    Feed("\x1b[8;10;30t\x1b[31mred");
    EXPECT_EQ(TerminalLineAt(1)->cells[1].fg, terminalSettings.palette[1]);
    SetAllowResize(false);
    Feed("\x1b[8;24;80tA");
    EXPECT_EQ(Size() + RowText(1), "30x10redA.");
    SwitchDarkBackground();
    ExpectFitting();
    EXPECT_EQ(TerminalPicture().pixel(1, 1), 0xFFFFFFFF);
}

TEST_F(TerminalSizing, StrangeSettingsAreHeld) {
    TerminalSettings& settings = TerminalSettingsForTable();
    settings.cols = -7;
    settings.rows = 1 << 30;
    settings.scrollBack = -1;
    settings.fontSize = 1 << 30;
    settings.extraLinePixels = -(1 << 30);
    SetUpTerminal();
    EXPECT_EQ(Size(), "101x256 for -7x1073741824");
    EXPECT_EQ(terminalMetrics.charHeight, 1);
    Feed("A\n\nB\x1bM\x1bM");
    EXPECT_FALSE(TerminalPicture().isNull());
}

TEST_F(TerminalSizing, LaysOutTheShownRowsAndGivesTheFocus) {
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
    EXPECT_EQ(place.contentTop, 55);
    for (int i = 0; i < kToolbarRows; ++i)
        EXPECT_EQ(GadgetHidden(kFirstToolbarRow + i), i != 0 && i != 3) << i;
    EXPECT_EQ(PlaceOf(kFirstToolbarRow), QRect(5, 5, 810, 25));
    EXPECT_EQ(PlaceOf(kFirstToolbarRow + 3), QRect(5, 30, 810, 25));
}

// The row on top, the last there can be, and where the bar stands.
std::string View() {
    return SizeText(terminalScreen.topLine, terminalScreen.topLimit, " of ") + ", bar at " +
           std::to_string(GadgetState(kTerminalScrollBar));
}

void MoveBar(int position) {
    SetGadgetState(kTerminalScrollBar, position);
    ScrollBarChanged();
}

// The bar reaches 40 lines less than the scrollback, and nothing holds its lower part. An
// emptied terminal keeps where it stood, the attribute, the pending colours and the capture.
TEST_F(TerminalSizing, TheScrollBarMovesTheView) {
    for (int i = 0; i < 100; ++i) TerminalPrintLine(QString::number(i));
    EXPECT_EQ(View(), "51 of 51, bar at 51");
    MoveBar(20);
    EXPECT_EQ(RowText(1), "20.");
    Feed("here\n");  // lands on the rows on show and creates no line
    EXPECT_EQ(View(), "21 of 51, bar at 21");
    MoveBar(900);
    EXPECT_EQ(View(), "51 of 51, bar at 51");
    Feed(std::string(2000, '\n'));
    EXPECT_EQ(View(), "1024 of 1024, bar at 984");
    MoveBar(500);
    Feed("\x1b[31m\x1b[1mA");
    StartCapture();
    ClearTerminal(kTerminalCanvas);
    EXPECT_EQ(View(), "0 of 0, bar at 500");
    EXPECT_EQ(TerminalLineCount(), 51);
    EXPECT_EQ(terminalScreen.textAttr, kAttributeBold);
    EXPECT_EQ(terminalScreen.pendFg, terminalSettings.palette[1]);
    EXPECT_EQ(terminalScreen.curFg, 0xFFFFFFu);
    EXPECT_TRUE(capture.on);
    Feed("\x1b[99;1H\n\x1b[8;24;80t");  // the bar stays where the last scroll put it
    EXPECT_EQ(View(), "0 of 0, bar at 1");
}

TEST_F(TerminalSizing, PrintsLinesOfOtherThreadsInOrderWithTheirEvents) {
    std::thread worker([] {
        TerminalPrintLine("one");
        PostInterfaceEvent(kEventSendStatus, kMainWindow, kNone, 0);
        for (int i = 0; i < 2 * kMostHandedLines; ++i) TerminalPrintLine("two");
    });
    worker.join();
    std::string order = ScreenText();
    int printed = 0;
    for (int32_t event; (event = WaitForEvent(0)) != kNoEvent;) {
        if (event == kEventSendStatus) order += " status";
        if (event != kEventPrintLine) continue;
        PrintHandedLines();
        if (++printed < 3) order += " " + RowText(terminalScreen.cursorY - 1);
    }
    EXPECT_EQ(order, " 1,1 one. status two.");
    EXPECT_EQ(printed, kMostHandedLines);
}

}  // namespace
