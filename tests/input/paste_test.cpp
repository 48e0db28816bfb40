// The clipboard typed into the device: its lines, and its pace on the virtual clock.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/LineEnding.h"
#include "terminal/input/Paste.h"
#include "tests/support/FarEnd.h"
#include "tests/support/VirtualClock.h"
#include "ui/windows/Clipboard.h"

namespace {

TEST(Paste, LinesTrimmedEachInFrontOfItsPause) {
    VirtualClock clock;
    FarEnd device;
    const struct {
        const char *ending, *text, *slowly;  // "|" for each pause
    } cases[] = {
        {"CRLF", "one", "one\r\n|"},
        {"CR", "  a b  \r\n\tc\n\n", "a b\r|\tc\r|\r|"},
        {"LF", "x\ry\r\nz é", "x\ry\n|z \xE9\n|"},
        {"CRLF", "", ""},
    };
    std::string steps;
    clock.onTick = [&](int64_t now) {
        if (now % 50 == 1) steps += device.Read();
        if (now % 50 == 0) steps += '|';
    };
    for (const auto& each : cases) {
        SetLineEnding(each.ending);
        SetClipboardText(each.text);
        steps.clear();
        PasteClipboard(50);
        EXPECT_EQ(steps, each.slowly);
        PasteClipboard(0);
        steps.erase(std::remove(steps.begin(), steps.end(), '|'), steps.end());
        EXPECT_EQ(device.Read(), steps);
    }
}

}  // namespace
