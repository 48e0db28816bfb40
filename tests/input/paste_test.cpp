// The clipboard typed into the device: its lines, and its pace on the virtual clock.
#include <gtest/gtest.h>

#include "base/LineEnding.h"
#include "link/LinkPrimitives.h"
#include "terminal/input/Paste.h"
#include "tests/support/FarEnd.h"
#include "tests/support/VirtualClock.h"
#include "ui/DragDrop.h"

TEST(Paste, LinesTrimmedWithTheLineEnding) {
    VirtualClock clock;
    FarEnd device;
    const struct {
        const char* ending;
        QString text;
        std::string bytes;
        int64_t slowly;  // milliseconds at 120 a line
    } cases[] = {
        {"CRLF", "one", "one\r\n", 120},
        {"CR", "  a b  \r\n\tc\n\n", "a b\r\tc\r\r", 360},
        {"LF", "\n", "\n", 120},
        {"LF", "x\ry\r\nz é→", std::string("x\ry\nz \xE9\n\0", 9), 240},
        {"CRLF", "", "", 0},
    };
    for (const auto& each : cases) {
        SetLineEnding(each.ending);
        SetClipboardText(each.text);
        int64_t before = clock.Now();
        PasteClipboard(0);
        EXPECT_EQ(clock.Now(), before);
        const std::string sent = device.Read();
        EXPECT_EQ(sent, each.bytes);
        before = clock.Now();
        PasteClipboard(120);
        EXPECT_EQ(clock.Now() - before, each.slowly);
        EXPECT_EQ(device.Read().size(), sent.size());
    }
}

// Each line goes out in front of its pause, none behind the last but its own, and a paste
// with no link takes as long.
TEST(Paste, PaceOfASlowPaste) {
    VirtualClock clock;
    SetClipboardText("1\n2\n3\n");
    PasteClipboard(50);
    EXPECT_EQ(clock.Now(), 150);
    FarEnd device;
    std::string steps;
    clock.onTick = [&](int64_t now) {
        if (now % 50 == 1) steps += device.Read();
        if (now % 50 == 0) steps += '|';
    };
    PasteClipboard(50);
    EXPECT_EQ(steps, "1\r\n|2\r\n|3\r\n|");
}
