// Any bytes, in two calls, through the parser, the model and the painters. The model's
// invariants must hold afterwards; the sanitizers watch the rest.
#include <algorithm>
#include <cstdlib>
#include <string>

#include "tests/screen/ScreenRig.h"
#include "ui/InterfaceLayer.h"

namespace {

constexpr int kSmallScrollBack = 40;  // lines, so that the limit is met at once

bool ModelHolds() {
    const TerminalScreen& screen = terminalScreen;
    return screen.cursorX >= 1 && screen.cursorX <= screen.cols && screen.cursorY >= 1 &&
           screen.cursorY <= screen.rows && screen.cols <= kLastColumn &&
           screen.rows <= kMostRows && screen.topLine >= 0 && screen.topLine <= screen.topLimit &&
           screen.topLimit <= screen.scrollBack &&
           TerminalLineCount() == screen.rows + 1 + screen.topLimit;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    StartInterfaceLayer(*argv);
    TerminalSettingsForTable().scrollBack = kSmallScrollBack;
    OpenScreenRig();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const char* const names[] = {"CRLF", "CR", "LF"};
    SetLineEnding(names[data[0] % 3]);
    const QString text =
        QString::fromLatin1(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    const int cut = std::min<int>(data[0], text.size());
    TerminalFeed(text.left(cut));
    NotifyCursorBlink();
    TerminalFeed(text.mid(cut));
    if (!ModelHolds()) abort();
    if (data[0] & 1) TerminalPicture();
    TakeReplyText();
    DropQueuedEvents(kEventTerminalReply, kNone);
    return 0;
}
