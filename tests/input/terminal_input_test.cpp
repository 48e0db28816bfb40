// Keys, clicks and the wheel of the terminal canvas, as bytes at the far end of the link.
#include <gtest/gtest.h>

#include <climits>

#include "base/LineEnding.h"
#include "base/Numbers.h"
#include "terminal/input/TerminalInput.h"
#include "terminal/screen/TerminalMode.h"
#include "terminal/screen/TerminalScreen.h"
#include "terminal/screen/TerminalSizing.h"
#include "tests/support/FarEnd.h"
#include "tests/support/VirtualClock.h"
#include "ui/CanvasEventData.h"
#include "ui/CanvasGadget.h"
#include "ui/Gadgets.h"
#include "ui/InterfaceEvent.h"
#include "ui/ScrollBarGadget.h"
#include "ui/WaitWindowEvent.h"
#include "ui/Windows.h"

namespace {

class InputTest : public testing::Test {
  protected:
    void SetUp() override {
        OpenNumberedWindow(kMainWindow, 0, 0, 900, 700, "", kStandardWindowFlags);
        CanvasGadget(kTerminalCanvas, 5, 5, 800, 600, kCanvasKeyboard);
        ScrollBarGadget(kTerminalScrollBar, 810, 5, 18, 600, 0, terminalScreen.scrollBack, 40,
                        ScrollDirection::kVertical);
        CloseGadgetList();
        SetUpTerminal();
        BindGadgetHandler(kTerminalCanvas, MouseWheelHandler, kTypeMouseWheel);
    }
    // What the device gets when `handler` acts on the event.
    std::string Sent(int64_t type, const CanvasEventData& data, void (*handler)()) {
        RaiseCanvasEvent(kTerminalCanvas, type, kEventUnmerged, data);
        do {
            if (WaitForEvent(0) == kNoEvent) return "no event";
        } while (EventObject() != kTerminalCanvas || EventType() != type);
        handler();
        return device.Read();
    }
    std::string Key(int key, int modifiers = 0) {
        CanvasEventData data;
        data.key = static_cast<uint32_t>(key);
        data.modifiers = static_cast<uint32_t>(modifiers);
        return Sent(kTypeKeyDown, data, HandleTerminalKey);
    }
    std::string Wheel(int steps) {
        CanvasEventData data;
        data.wheel = steps;
        RaiseCanvasEvent(kTerminalCanvas, kTypeMouseWheel, 0, data);
        return device.Read();
    }

    VirtualClock clock;
    FarEnd device;
    InputSettings& settings = InputSettingsForTable();
};

TEST_F(InputTest, KeyTable) {
    SetLineEnding("LF");  // no matter to the keys
    const std::pair<int, std::string> rows[] = {
        {Qt::Key_Return, "\r"},    {Qt::Key_Up, "\x1b[A"},      {Qt::Key_Down, "\x1b[B"},
        {Qt::Key_Right, "\x1b[C"}, {Qt::Key_Left, "\x1b[D"},    {Qt::Key_Backspace, "\b"},
        {Qt::Key_Home, "\x1b[1~"}, {Qt::Key_Insert, "\x1b[2~"}, {Qt::Key_Delete, "\x1b[3~"},
        {Qt::Key_End, "\x1b[4~"},  {Qt::Key_PageUp, "\x1b[5~"}, {Qt::Key_PageDown, "\x1b[6~"},
        {Qt::Key_F12, "\x1b[24~"}, {Qt::Key_Tab, ""},           {Qt::Key_Enter, ""},
        {Qt::Key_F13, ""},         {Qt::Key_Space, ""},         {Qt::Key_1, ""},
    };
    for (const auto& [key, bytes] : rows) {
        EXPECT_EQ(Key(key), bytes) << key;
        EXPECT_EQ(Key(key, kModifierControl), bytes) << key;
    }
    for (int letter = 'A'; letter <= 'Z'; ++letter) {
        for (int mask = 0; mask < 8; ++mask)
            EXPECT_EQ(Key(letter, mask), mask == 4 ? std::string(1, letter - 64) : "") << mask;
    }
    EXPECT_EQ(clock.Now(), 0);
    EXPECT_EQ(Key(Qt::Key_Escape, kModifierAlt), "\x1b");
    EXPECT_EQ(clock.Now(), 120);  // this one waits for its reply
}

TEST_F(InputTest, FunctionKeys) {
    // Plain, plain with the VT100 setting, shifted, shifted with the XTERM setting.
    const char* const rows[12][4] = {
        {"[11~", "OP", "[23~", "[11;2~"},   {"[12~", "OQ", "[24~", "[12;2~"},
        {"[13~", "OR", "[25~", "[13;2~"},   {"[14~", "OS", "[26~", "[14;2~"},
        {"[15~", "[15~", "[28~", "[15;2~"}, {"[17~", "[17~", "[29~", "[17;2~"},
        {"[18~", "[18~", "[31~", "[18;2~"}, {"[19~", "[19~", "[32~", "[19;2~"},
        {"[20~", "[20~", "[33~", "[20;2~"}, {"[21~", "[21~", "[34~", "[21;2~"},
        {"[23~", "[23~", "", "[23;2~"},     {"[24~", "[24~", "", "[24;2~"},
    };
    for (int key = 0; key < 12; ++key) {
        for (int set = 0; set < 4; ++set) {
            settings.vt100FunctionKeys = set & 1;
            settings.xtermFunctionKeys = set >> 1;
            for (int mask = 0; mask < 8; ++mask) {
                const bool shifted = mask == kModifierShift;
                const std::string bytes = rows[key][shifted ? 2 + (set >> 1) : set & 1];
                EXPECT_EQ(Key(Qt::Key_F1 + key, mask), bytes.empty() ? "" : "\x1b" + bytes)
                    << key + 1 << " " << set << " " << mask;
            }
        }
    }
}

TEST_F(InputTest, EveryCharacter) {
    for (int unit = 0; unit < 260; ++unit) {
        CanvasEventData data;
        data.input = static_cast<uint32_t>(unit);
        // Above 255 the character is left out and a 0 byte makes up the count.
        EXPECT_EQ(Sent(kTypeInput, data, HandleTerminalInput),
                  std::string(1, static_cast<char>(unit < 256 ? unit : 0)))
            << unit;
    }
}

TEST_F(InputTest, MouseReports) {
    const int width = terminalMetrics.charWidth;
    const int height = terminalMetrics.charHeight;
    settings.clickYShift = -3;
    const struct {
        int x, y, column, row;
    } clicks[] = {
        {0, 0, 33, 33},                           // 32, raised to 33
        {width - 6, height + 2, 33, 33},          // the last that computes 32
        {2 * width - 6, 2 * height + 2, 33, 33},  // 33 by itself
        {2 * width - 5, 2 * height + 3, 34, 34},
        {-100 * width, -100 * height, 33, 33},
        {100 * width - 5, 2 * height + 3, 132, 34},
    };
    for (const auto& click : clicks) {
        CanvasEventData data;
        data.x = click.x;
        data.y = click.y;
        std::string report = "\x1b[M ";
        report += static_cast<char>(click.column);
        report += static_cast<char>(click.row);
        EXPECT_EQ(Sent(kTypeLeftClick, data, SendMouseReport), report) << click.x << " " << click.y;
    }
    settings.clickXShift = INT_MAX;  // no place beyond what a character can tell
    EXPECT_EQ(MouseReport(INT_MAX, 0).mid(4, 1), QString(QChar(0xFFFF)));
}

TEST_F(InputTest, WheelAsArrowKeys) {
    SetMouseMode(1);
    for (const int rate : {1, 40, 0, -1, INT_MIN}) {
        settings.mouseScrollRate = rate;
        EXPECT_EQ(Wheel(2), rate < 0 ? "\x1b[B\x1b[B" : "\x1b[A\x1b[A") << rate;
        EXPECT_EQ(Wheel(-1), rate < 0 ? "\x1b[A" : "\x1b[B") << rate;
        EXPECT_EQ(Wheel(0), "");
    }
    for (const int steps : {INT_MAX, INT_MIN})
        EXPECT_EQ(Wheel(steps).size(), 3U * kMostWheelArrows);
}

TEST_F(InputTest, WheelScrolls) {
    TerminalScrollUp(1000);
    SetMouseMode(1000);  // any mode but 1
    // The bar ends 40 short of the scrollback's 1024 lines, so that at 1000 it shows 984,
    // and the first touch jumps back to that.
    const struct {
        int rate, from, steps, to;
    } cases[] = {
        {1, 500, 1, 499},       {1, 500, -2, 502},      {3, 500, 1, 497},    {-3, 500, 1, 503},
        {0, 500, 1, 500},       {1, 1, 1, 1},           {1, 2, 1, 1},        {3, 2, 1, 0},
        {3, 5, 5, 5},           {3, 1000, -40, 1000},   {3, 1000, -39, 984}, {3, 900, -30, 984},
        {INT_MIN, 500, 1, 984}, {3, 500, INT_MIN, 500},
    };
    for (const auto& each : cases) {
        settings.mouseScrollRate = each.rate;
        TerminalScrollDown(2000);
        TerminalScrollUp(each.from);
        EXPECT_EQ(Wheel(each.steps), "");
        EXPECT_EQ(terminalScreen.topLine, each.to) << each.from << " " << each.steps;
    }
}

}  // namespace
