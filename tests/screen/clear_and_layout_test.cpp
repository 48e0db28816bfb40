// What an emptied terminal keeps, and what the main window's layout takes and gives.
#include <gtest/gtest.h>

#include "terminal/screen/WindowLayout.h"
#include "tests/screen/ScreenRig.h"
#include "ui/events/WaitWindowEvent.h"
#include "ui/gadgets/TextEntryGadget.h"
#include "ui/windows/Windows.h"

namespace {

TEST(ClearTerminal, LeavesTheAttributeThePendingColoursAndTheScrollBar) {
    OpenScreenRig();
    Feed(std::string(100, '\n') + "\x1b[31m\x1b[1mA");
    const uint32_t pending = terminalScreen.pendFg;
    EXPECT_EQ(GadgetState(kTerminalScrollBar), 51);
    StartCapture();
    ClearTerminal(kTerminalCanvas);
    EXPECT_EQ(terminalScreen.textAttr, kAttributeBold);
    EXPECT_EQ(terminalScreen.pendFg, pending);
    EXPECT_EQ(terminalScreen.curFg, 0xFFFFFFu);
    EXPECT_EQ(GadgetState(kTerminalScrollBar), 51);
    EXPECT_EQ(terminalScreen.topLine + terminalScreen.topLimit, 0);
    EXPECT_EQ(TerminalLineCount(), 51);
    EXPECT_TRUE(capture.on);
}

TEST(LayoutMainWindow, TakesTheWindowsPlaceAndGivesTheFocus) {
    OpenScreenRig();
    TextEntryGadget(kCommandEntry, 0, 0, 9, 9, "");
    for (int i = 0; i < 1000 && FocusedGadget() != kTerminalCanvas; ++i) WaitForEvent(1);
    FocusGadget(kCommandEntry);
    ResizeNumberedWindow(kMainWindow, 31, 32, 903, 704);
    PaintTerminalFrame(false);
    LayoutMainWindow();
    EXPECT_EQ(mainWindowPlace.x, 31);
    EXPECT_EQ(mainWindowPlace.y, 32);
    EXPECT_EQ(mainWindowPlace.width, 903);
    EXPECT_EQ(mainWindowPlace.height, 704);
    EXPECT_EQ(FocusedGadget(), kTerminalCanvas);
    EXPECT_EQ(CanvasPicture(kFrameCanvas).pixel(2, 2), 0xFF7FC2FF);
}

}  // namespace
