// Sizes, the window around the terminal, the scroll bar, what an emptied terminal keeps,
// and lines of other threads.
#include <gtest/gtest.h>

#include <thread>
#include <tuple>

#include "terminal/screen/ColourScheme.h"
#include "tests/screen/ScreenRig.h"
#include "ui/gadgets/TextEntryGadget.h"

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

std::string Size() {
    return std::to_string(terminalScreen.cols) + "x" + std::to_string(terminalScreen.rows);
}

// What every change of size leaves: an empty terminal, and a window and pictures that fit.
void ExpectFitting() {
    const int width = terminalScreen.cols * terminalMetrics.charWidth + 4;
    const int height = terminalScreen.rows * terminalMetrics.charHeight + 4;
    const int top = mainWindowPlace.contentTop;
    EXPECT_EQ(TerminalPicture().size(), QSize(width, height));
    EXPECT_EQ(CanvasPicture(kFrameCanvas).size(), QSize(width + 10, height + 10));
    EXPECT_EQ(PlaceOf(kTerminalCanvas), QRect(5, 5, width, height));
    EXPECT_EQ(PlaceOf(kFrameCanvas), QRect(5, top, width + 10, height + 10));
    EXPECT_EQ(PlaceOf(kTerminalScrollBar), QRect(width + 17, top, 18, height));
    EXPECT_EQ(WindowWidth(kMainWindow, WindowMeasure::kInner), width + 40);
    EXPECT_EQ(WindowHeight(kMainWindow, WindowMeasure::kInner), height + top + 35);
    EXPECT_EQ(mainWindowPlace.width, width + 40);
    EXPECT_EQ(mainWindowPlace.height, height + top + 35);
    const std::string text = Size().replace(Size().find('x'), 1, " x ") + " char, " +
                             std::to_string(width) + " x " + std::to_string(height) + " pixels";
    EXPECT_EQ(GadgetText(kTerminalSizeText).toStdString(), text);
    EXPECT_EQ(TerminalLineCount(), terminalScreen.rows + 1);
    EXPECT_EQ(ScreenText(), "");
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
    EXPECT_EQ(Size(), "101x256");
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

void ExpectView(int topLine, int topLimit, int bar) {
    const auto seen = std::make_tuple(terminalScreen.topLine, terminalScreen.topLimit,
                                      GadgetState(kTerminalScrollBar));
    EXPECT_EQ(seen, std::make_tuple(topLine, topLimit, bar));
}

void MoveBar(int position) {
    SetGadgetState(kTerminalScrollBar, position);
    ScrollBarChanged();
}

// The bar reaches 40 lines less than the scrollback, and nothing holds its lower part. An
// emptied terminal keeps where it stood, the attribute, the pending colours and the capture.
TEST_F(TerminalSizing, TheScrollBarMovesTheView) {
    for (int i = 0; i < 100; ++i) TerminalPrintLine(QString::number(i));
    ExpectView(51, 51, 51);
    MoveBar(20);
    EXPECT_EQ(RowText(1), "20.");
    Feed("here\n");  // lands on the rows on show and creates no line
    ExpectView(21, 51, 21);
    MoveBar(900);
    ExpectView(51, 51, 51);
    Feed(std::string(2000, '\n'));
    ExpectView(1024, 1024, 1024 - 40);
    MoveBar(500);
    Feed("\x1b[31m\x1b[1mA");
    StartCapture();
    ClearTerminal(kTerminalCanvas);
    ExpectView(0, 0, 500);
    EXPECT_EQ(TerminalLineCount(), 51);
    EXPECT_EQ(terminalScreen.textAttr, kAttributeBold);
    EXPECT_EQ(terminalScreen.pendFg, terminalSettings.palette[1]);
    EXPECT_EQ(terminalScreen.curFg, 0xFFFFFFu);
    EXPECT_TRUE(capture.on);
    Feed("\x1b[99;1H\n\x1b[8;24;80t");  // the bar stays where the last scroll put it
    ExpectView(0, 0, 1);
}

TEST_F(TerminalSizing, PrintsLinesOfOtherThreadsInOrderWithTheirEvents) {
    std::thread worker([] {
        TerminalPrintLine("one");
        PostInterfaceEvent(kEventSendStatus, kMainWindow, kNone, 0);
        for (int i = 0; i < 2 * kMostHandedLines; ++i) TerminalPrintLine("two");
    });
    worker.join();
    EXPECT_EQ(RowText(1), "");
    std::string order;
    int printed = 0;
    for (int32_t event; (event = WaitForEvent(0)) != kNoEvent;) {
        if (event == kEventSendStatus) order += "status ";
        if (event != kEventPrintLine) continue;
        PrintHandedLines();
        if (++printed < 3) order += RowText(terminalScreen.cursorY - 1);
    }
    EXPECT_EQ(order, "one.status two.");
    EXPECT_EQ(printed, kMostHandedLines);
}

}  // namespace
