// Any bytes, in two calls, through the parser, the model and the painters. The model's
// invariants must hold afterwards; the sanitizers watch the rest.
#include "tests/screen/ScreenRig.h"
#include "ui/InterfaceLayer.h"

extern "C" int LLVMFuzzerInitialize(int*, char*** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    StartInterfaceLayer(*argv);
    TerminalSettingsForTable().scrollBack = 40;  // lines, so that the limit is met at once
    OpenScreenRig();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    SetLineEnding(kLineEndings[data[0] % 3].name);
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    const size_t cut = std::min<size_t>(data[0], text.size());
    Feed(text.substr(0, cut));
    NotifyCursorBlink();
    Feed(text.substr(cut));
    const TerminalScreen& screen = terminalScreen;
    const bool holds = screen.cursorX >= 1 && screen.cursorX <= screen.cols &&
                       screen.cursorY >= 1 && screen.cursorY <= screen.rows &&
                       screen.cols <= kLastColumn && screen.rows <= kMostRows &&
                       screen.topLine >= 0 && screen.topLine <= screen.topLimit &&
                       screen.topLimit <= screen.scrollBack &&
                       TerminalLineCount() == screen.rows + 1 + screen.topLimit;
    if (!holds) abort();
    if (data[0] & 1) TerminalPicture();
    TakeReplyText();
    DropQueuedEvents(kEventTerminalReply, kNone);
    return 0;
}
