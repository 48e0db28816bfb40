// The listing's way to the editor: what is asked of the board, what is cut from the capture,
// the clipboard, and the word to the editor's port.
#include <gtest/gtest.h>

#include "link/LinkSettings.h"
#include "link/SendListing.h"
#include "terminal/screen/Capture.h"
#include "terminal/screen/VtParser.h"
#include "tests/support/FarEnd.h"
#include "tests/support/LocalTools.h"
#include "tests/support/VirtualClock.h"
#include "ui/windows/Clipboard.h"

namespace {

TEST(SendListing, CutsTheEchoAndTellsAnEditorThatRuns) {
    VirtualClock clock;
    FarEnd device;
    int& port = LinkSettingsForTable().editorPort;
    const int editor = ListenLocally(port);
    for (const auto& [captured, listing] : {std::pair<QString, QString>  //
                                            {"LIST ALL\r\n10 PRINT\r\n> ", "10 PRINT\r\n> "},
                                            {"LIST ALL\r\r\n10>", "\n10>"},
                                            {"LIST ALL10 PRINT\r\n>", "0 PRINT\r\n>"},
                                            {"ALL\r\n>", ""}}) {
        RequestListing();
        EXPECT_EQ(device.Read(), "LIST ALL\r\n");
        const int end = captured.indexOf('>');
        TerminalFeed(captured.left(end));
        FinishSendListing();  // not all has come: nothing is done
        TerminalFeed(captured.mid(end));
        ASSERT_EQ(capture.listingState, kListingComplete);
        const int64_t before = clock.Now();
        FinishSendListing();
        EXPECT_EQ(clock.Now() - before, 20);
        EXPECT_EQ(ClipboardText(), listing);
        const int session = accept(editor, nullptr, nullptr);
        char bytes[32] = "";
        EXPECT_EQ(recv(session, bytes, sizeof bytes, MSG_WAITALL), 8);  // closed behind it
        EXPECT_STREQ(bytes, "/paste \r");
        close(session);
        FinishSendListing();  // once
        CaptureText("later");
        EXPECT_EQ(TakeCapture(), listing + "later");  // capture stays on, the listing in it
    }
    close(editor);
    SetListingState(kListingComplete);
    FinishSendListing();  // nobody listens: nothing is said
    EXPECT_EQ(TakeCapture(), "");
}

}  // namespace
