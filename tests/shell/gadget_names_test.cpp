// What a screen reader says of the main window.
#include <gtest/gtest.h>

#include "base/Numbers.h"
#include "link/LinkPrimitives.h"
#include "shell/MainWindow.h"
#include "ui/Gadgets.h"

TEST(GadgetNames, EveryGadgetHasOne) {
    AllocateLinkBuffers();
    OpenMainWindow();
    CreateToolbarRows();
    CreateTerminal();
    CreateScrollBar();
    DressGadgets();
    int seen = 0;
    for (int gadget = 0; gadget <= kModeText; ++gadget) {
        if (!GadgetExists(gadget)) continue;
        ++seen;
        EXPECT_FALSE(GadgetName(gadget).isEmpty()) << gadget;
    }
    EXPECT_GT(seen, 50);
    EXPECT_EQ(GadgetName(kTerminalCanvas), "Terminal");
    EXPECT_EQ(GadgetName(kClearCommandButton), "Clear command line");
    FreeLinkBuffers();
}
