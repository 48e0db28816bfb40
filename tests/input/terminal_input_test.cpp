// Clicks and the wheel of the terminal canvas, and the clipboard typed into the device, as
// bytes at the far end of the link.
#include <climits>

#include "terminal/input/Paste.h"
#include "tests/screen/ScreenRig.h"
#include "tests/support/FarEnd.h"

namespace {

const bool startState = KeepStartState(PutBackInput);

struct InputTest : testing::Test {
    VirtualClock clock;
    FarEnd device;
    InputSettings& settings = InputSettingsForTable();
    CanvasEventData data;

    InputTest() {
        OpenScreenRig();
        BindGadgetHandler(kTerminalCanvas, MouseWheelHandler, kTypeMouseWheel);
    }
    std::string Wheel(int steps) {
        data.wheel = steps;
        RaiseCanvasEvent(FindCanvas(kTerminalCanvas), kTypeMouseWheel, 0, data);
        return device.Read();
    }
};

TEST_F(InputTest, MouseReports) {
    const int width = terminalMetrics.charWidth, height = terminalMetrics.charHeight;
    settings.clickYShift = -3;
    // The first cell's last pixel, and the second's first.
    EXPECT_EQ(MouseReport(2 * width - 6, 2 * height + 2), "\x1b[M !!");
    EXPECT_EQ(MouseReport(2 * width - 5, 2 * height + 3), "\x1b[M \"\"");
}

TEST_F(InputTest, Wheel) {
    SetMouseMode(1);  // arrow keys
    for (const int rate : {40, 0, INT_MIN}) {
        settings.mouseScrollRate = rate;
        EXPECT_EQ(Wheel(2), rate < 0 ? "\x1b[B\x1b[B" : "\x1b[A\x1b[A") << rate;
        EXPECT_EQ(Wheel(-1), rate < 0 ? "\x1b[A" : "\x1b[B") << rate;
        EXPECT_EQ(Wheel(INT_MIN).size(), 3U * kMostWheelArrows);
    }
    SetMouseMode(1000);  // any mode but 1: the scrollback
    TerminalScrollUp(1000);
    // The bar ends 40 short of the scrollback's 1024 lines, so that at 1000 it shows 984,
    // and the first touch jumps back to that.
    const int cases[][4] = {// rate, from, steps, to
                            {1, 500, -2, 502},  {3, 500, 1, 497},       {-3, 500, 1, 503},
                            {1, 1, 1, 1},       {3, 2, 1, 0},           {3, 1000, -39, 984},
                            {3, 900, -30, 984}, {INT_MIN, 500, 1, 984}, {3, 500, INT_MIN, 500}};
    for (const auto& [rate, from, steps, to] : cases) {
        settings.mouseScrollRate = rate;
        TerminalScrollDown(2000);
        TerminalScrollUp(from);
        EXPECT_EQ(Wheel(steps), "");
        EXPECT_EQ(terminalScreen.topLine, to) << from << " " << steps;
    }
}

// Each line, trimmed, in front of its pause.
TEST_F(InputTest, PastesLines) {
    const struct {
        const char *ending, *text, *slowly;  // "|" for each pause
    } cases[] = {
        {"CRLF", "one", "one\r\n|"},
        {"CR", "  a b  \r\n\tc\n\n", "a b\r|\tc\r|\r|"},
        {"LF", "x\ry\r\nz é", "x\ry\n|z \xE9\n|"},
        {"CRLF", "", ""},
    };
    QString steps;
    clock.onTick = [&](int64_t now) {
        if (now % 50 == 1) steps += QString::fromLatin1(device.Read().c_str());
        if (now % 50 == 0) steps += '|';
    };
    for (const auto& each : cases) {
        SetLineEnding(each.ending);
        SetClipboardText(each.text);
        steps.clear();
        PasteClipboard(50);
        EXPECT_EQ(steps, QString::fromLatin1(each.slowly));
        PasteClipboard(0);
        EXPECT_EQ(QString::fromLatin1(device.Read().c_str()), steps.remove('|'));
    }
}

}  // namespace
