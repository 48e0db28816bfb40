// The listing's way to the editor: what is cut from the capture, the clipboard, and the
// word to the editor's port.
#include <gtest/gtest.h>

#include "link/LinkSettings.h"
#include "link/SendListing.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/VtParser.h"
#include "tests/support/LocalTools.h"
#include "tests/support/VirtualClock.h"
#include "ui/windows/Clipboard.h"

namespace {

TEST(SendListing, CutsTheEchoAndTellsAnEditorThatRuns) {
    VirtualClock clock;
    int& port = LinkSettingsForTable().editorPort;
    port = FreePort();  // nobody listens: nothing is said
    const std::pair<QString, QString> cases[] = {
        {"LIST ALL\r\n10 PRINT\r\n> ", "10 PRINT\r\n> "},
        {"LIST ALL\r\r\n10>", "\n10>"},
        {"LIST ALL10 PRINT\r\n>", "0 PRINT\r\n>"},
        {"ALL\r\n>", ""},
    };
    for (const auto& [captured, listing] : cases) {
        StartCapture();
        SetListingState(kListingWaiting);
        TerminalFeed(captured.chopped(1));
        TerminalFeed(captured.right(1));
        EXPECT_EQ(capture.listingState, kListingComplete);
        FinishSendListing();
        EXPECT_EQ(ClipboardText(), listing);
        EXPECT_EQ(capture.listingState, kListingIdle);
        CaptureText("later");
        EXPECT_EQ(TakeCapture(), listing + "later");  // capture stays on, the listing in it
    }
    const int editor = ListenLocally(port);
    const int64_t before = clock.Now();
    SetListingState(kListingComplete);
    FinishSendListing();
    EXPECT_EQ(clock.Now() - before, 20);
    const int session = accept(editor, nullptr, nullptr);
    char bytes[32] = "";
    EXPECT_EQ(recv(session, bytes, sizeof bytes, MSG_WAITALL), 8);  // closed behind it
    EXPECT_STREQ(bytes, "/paste \r");
    close(session);
    close(editor);
}

}  // namespace
